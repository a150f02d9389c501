// A shared library that registers nothing.
extern "C" int something_else();

int something_else() {
    return 0;
}
