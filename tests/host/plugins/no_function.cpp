// A shared library without the entry point.
extern "C" int something_else();

int something_else() {
    return 0;
}
