#include "cli/input.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "cli/file_error.h"

namespace qvgraph {

namespace {

// The parsed document would need gigabytes: the path is probably wrong.
const size_t MAX_SIZE = size_t{256} << 20;

const char* const TOO_LARGE = "it is larger than 256 MiB";

[[noreturn]] void fail(const std::string& name, const std::string& why) {
    throw FileError("cannot read " + (name.empty() ? "''" : name) + ": " + why);
}

std::string readAll(FILE* file, const std::string& name) {
    std::string text;
    char chunk[65536];
    for (;;) {
        const size_t size = fread(chunk, 1, sizeof(chunk), file);
        text.append(chunk, size);
        if (ferror(file) != 0) {
            fail(name, strerror(errno));
        }
        if (text.size() > MAX_SIZE) {
            fail(name, TOO_LARGE);
        }
        if (size == 0) {
            text.shrink_to_fit();
            return text;
        }
    }
}

}  // namespace

Input readInput(const std::string& path) {
    if (path == "-") {
        return {"<stdin>", readAll(stdin, "<stdin>")};
    }
    const std::unique_ptr<FILE, int (*)(FILE*)> file(fopen(path.c_str(), "rb"), fclose);
    if (!file) {
        // Where long has 32 bits, opening a file of 2 GiB already fails.
        fail(path, errno == EOVERFLOW ? TOO_LARGE : strerror(errno));
    }
    return {path, readAll(file.get(), path)};
}

}  // namespace qvgraph
