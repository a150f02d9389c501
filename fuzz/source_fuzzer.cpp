// Any bytes at all: a source accepts what json11 accepts and reads it as json11
// does. Ends the process where it does not.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "source/source.h"
#include "tests/support/same_as_json11.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

void insistOn(bool condition, const char* what) {
    if (!condition) {
        std::fprintf(stderr, "%s\n", what);
        std::abort();
    }
}

// Bytes all over the text have a place, and every value a pointer.
void walk(const qvgraph::Source& source) {
    for (size_t byte = 0; byte <= source.text().size(); byte += 1 + source.text().size() / 8) {
        const qvgraph::Position position = source.position(byte);
        insistOn(position.line <= source.lineCount() && position.column >= 1, "no such position");
    }
    size_t bytes = source.lineCount() - 1;
    for (size_t number = 1; number <= source.lineCount(); ++number) {
        bytes += source.line(number).size();
    }
    insistOn(bytes <= source.text().size(), "lines longer than the text");
    for (const qvgraph::Value& value : source.values()) {
        insistOn(pointerTo(value).empty() == (value.parent == nullptr), "no pointer");
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(data, data + size);
    const std::string difference = differenceFromJson11(text);
    insistOn(difference.empty(), difference.c_str());
    walk(qvgraph::Source(text));
    return 0;
}
