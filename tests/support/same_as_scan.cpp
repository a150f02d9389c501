#include "tests/support/same_as_scan.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "graph/qv_graph_parser.h"

namespace {

// A float as a string, so that not-a-number equals itself.
std::string textOf(float value) {
    char text[32];
    snprintf(text, sizeof(text), "float %a", static_cast<double>(value));
    return text;
}

// A store that keeps its last call.
class LastCall : public QvMetaData {
public:
    int setCString(const char* /*key*/, const char* value) override {
        return remember(std::string("string ") + value);
    }
    int setInt32(const char* /*key*/, int32_t value) override {
        return remember("int32 " + std::to_string(value));
    }
    int setInt64(const char* /*key*/, int64_t value) override {
        return remember("int64 " + std::to_string(value));
    }
    int setFloat(const char* /*key*/, float value) override { return remember(textOf(value)); }
    int findCString(const char* /*key*/, const char** /*value*/) override { return 0; }

    std::string call = "nothing";

private:
    int remember(const std::string& received) {
        call = received;
        return 0;
    }
};

uint64_t hashOf(const char* word) {
    uint64_t hash = 0;
    for (; *word != '\0'; ++word) {
        hash = hash * 131 + static_cast<unsigned char>(*word);
    }
    return hash;
}

std::string scanned(const char* text) {
    if (strlen(text) > 127) {
        return "nothing";
    }
    char type[128] = "";
    char value[128] = "";
    // cppcheck-suppress invalidscanf // not longer than the buffers: checked above
    sscanf(text, "%[^:]:%[^:]", type, value);
    const uint64_t hash = hashOf(type);
    if (hash == hashOf("int32")) {
        const long long number = strtoll(value, nullptr, 10);
        return "int32 " + std::to_string(std::clamp<long long>(number, INT32_MIN, INT32_MAX));
    }
    if (hash == hashOf("int64")) {
        return "int64 " + std::to_string(static_cast<int64_t>(strtoull(value, nullptr, 0)));
    }
    if (hash == hashOf("float") || hash == hashOf("double")) {
        return textOf(static_cast<float>(atof(value)));
    }
    return std::string("string ") + text;
}

}  // namespace

std::string differenceFromScan(const std::string& text) {
    LastCall store;
    const int result = QVGraphParser().parseOptions(&store, "key", text);
    const std::string expected = scanned(text.c_str());
    if (store.call != expected) {
        return text + ": " + store.call + ", but the scan returns " + expected;
    }
    const bool tooLong = strlen(text.c_str()) > 127;
    return result == (tooLong ? -68 : 0) ? "" : text + ": result " + std::to_string(result);
}
