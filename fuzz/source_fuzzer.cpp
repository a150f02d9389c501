// Any bytes: a Source accepts exactly what json11 accepts, and reads it as json11
// does.
#include <string>

#include "fuzz/harness.h"
#include "source/source.h"
#include "tests/support/same_as_json11.h"

namespace {

// Requires that bytes throughout the text have a position, and every value a
// pointer.
void walk(const qvgraph::Source& source) {
    for (size_t byte = 0; byte <= source.text().size(); byte += 1 + source.text().size() / 8) {
        const qvgraph::Position position = source.position(byte);
        require(position.line <= source.lineCount() && position.column >= 1,
                "a byte has no valid position");
    }
    size_t bytes = source.lineCount() - 1;
    for (size_t number = 1; number <= source.lineCount(); ++number) {
        bytes += source.line(number).size();
    }
    require(bytes <= source.text().size(), "the lines are longer than the text");
    for (const qvgraph::Value& value : source.values()) {
        require(pointerTo(value).empty() == (value.parent == nullptr), "a value has no pointer");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(data, data + size);
    const std::string difference = differenceFromJson11(text);
    require(difference.empty(), difference.c_str());
    walk(qvgraph::Source(text));
    return 0;
}
