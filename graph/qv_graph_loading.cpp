#include <cstdint>
#include <cstdio>
#include <limits>
#include <memory>

#include "graph/qv_graph_internal.h"
#include "graph/qv_graph_parser.h"

using json11::Json;

namespace {

struct FileCloser {
    void operator()(FILE* file) const { fclose(file); }
};
using File = std::unique_ptr<FILE, FileCloser>;

// Returns the size of the file and rewinds it. A file without a usable size
// reads as empty: ftell returns -1 for a pipe, the maximum of long for a
// directory, and -1 for a file of 2 GiB or more if long has 32 bits.
size_t sizeOf(FILE* file) {
    fseek(file, 0, SEEK_END);
    const long size = ftell(file);
    fseek(file, 0, SEEK_SET);
    return size < 0 || size >= std::numeric_limits<int32_t>::max() ? 0 : static_cast<size_t>(size);
}

// Returns the text of an open file, NUL-terminated.
std::unique_ptr<char[]> readText(FILE* file) {
    const size_t size = sizeOf(file);
    std::unique_ptr<char[]> text(new char[size + 1]);
    text[fread(text.get(), 1, size, file)] = '\0';
    return text;
}

}  // namespace

int QVGraphParser::parseConfigText(const char* text) {
    std::string err;
    if (text != nullptr) {
        mRoot = Json::parse(text, err, json11::COMMENTS);
    } else {
        err = "null input";
        mRoot = Json();
    }

    if (mRoot.is_null()) {
        qv_err(QV_ERROR("failed to json11::Json::parse(...), err=%s"), err.c_str());
        return -1;
    }
    return summary();
}

int QVGraphParser::parseConfigFile(const char* path) {
    File file(path != nullptr ? fopen(path, "rb") : nullptr);
    if (!file) {
        qv_err(QV_ERROR("failed to fopen(%s)"), path != nullptr ? path : "(null)");
        return -5;
    }
    const std::unique_ptr<char[]> text = readText(file.get());
    file.reset();
    return parseConfigText(text.get());
}

int QVGraphParser::saveConfig(const char* /*path*/) const {
    return -10;
}

int QVGraphParser::summary() const {
    return 0;
}
