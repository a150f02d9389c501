#include "render/option_value.h"

#include <charconv>
#include <cmath>

namespace qvgraph {

const char* typeName(const OptionValue& value) {
    static const char* const NAMES[] = {"string", "int32", "int64", "float"};
    return NAMES[value.index()];
}

std::string floatText(float value) {
    if (std::isnan(value)) {
        return "nan";  // a sign of not-a-number says nothing
    }
    char text[32];
    const auto end = std::to_chars(text, text + sizeof(text), value);
    std::string shortest(text, end.ptr);
    if (std::isfinite(value) && shortest.find_first_of(".e") == std::string::npos) {
        shortest += ".0";
    }
    return shortest;
}

}  // namespace qvgraph
