#include "survey/option_value.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <variant>

#include "survey/words.h"

namespace qvgraph {

namespace {

// The text with the fewest digits that reads back as the same float.
std::string shortest(float value) {
    const int maxDigits = 9;
    for (int digits = 1;; ++digits) {
        char text[32];
        snprintf(text, sizeof(text), "%.*g", digits, static_cast<double>(value));
        if (digits == maxDigits || std::strtof(text, nullptr) == value) {
            return text;
        }
    }
}

}  // namespace

const char* typeName(const OptionValue& value) {
    static const char* const NAMES[] = {"string", "int32", "int64", "float"};
    return NAMES[value.index()];
}

std::string floatText(float value) {
    if (std::isnan(value)) {
        return "nan";  // its sign has no meaning
    }
    const float size = std::abs(value);
    if (std::trunc(value) == value && size < 1e15F) {
        char text[32];
        snprintf(text, sizeof(text), "%.1f", static_cast<double>(value));
        return text;
    }
    return shortest(value);
}

std::string valueText(const OptionValue& value) {
    if (const auto* string = std::get_if<std::string>(&value)) {
        return quoted(*string);
    }
    if (const auto* real = std::get_if<float>(&value)) {
        return floatText(*real);
    }
    if (const auto* int64 = std::get_if<int64_t>(&value)) {
        return std::to_string(*int64);
    }
    return std::to_string(std::get<int32_t>(value));
}

}  // namespace qvgraph
