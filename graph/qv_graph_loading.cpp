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

// The size of a file, read from its beginning afterwards. What has no size of
// its own counts as empty: a pipe tells -1, a directory the largest long, and
// where long has 32 bits a file of 2 GiB or more tells -1 as well.
size_t sizeOf(FILE* file) {
    fseek(file, 0, SEEK_END);
    const long size = ftell(file);
    fseek(file, 0, SEEK_SET);
    return size < 0 || size >= std::numeric_limits<int32_t>::max() ? 0 : static_cast<size_t>(size);
}

// The text of an open file, NUL-terminated.
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
