#include "check/stored_option.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <variant>

#include "check/typed_text.h"
#include "check/words.h"

namespace qvgraph {

namespace {

Reading readInt32(const std::string& value) {
    char* end = nullptr;
    const long long number = std::strtoll(value.c_str(), &end, 10);
    const long long nearest = std::clamp<long long>(
        number, std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max());
    return {
        static_cast<int32_t>(nearest), static_cast<size_t>(end - value.c_str()), nearest == number};
}

// An unsigned conversion: what is out of range comes out with the other sign.
Reading readInt64(const std::string& value) {
    char* end = nullptr;
    errno = 0;
    const auto number = static_cast<int64_t>(std::strtoull(value.c_str(), &end, 0));
    const size_t first = value.find_first_not_of(" \t\n\v\f\r");
    const bool isMinus = first != std::string::npos && value[first] == '-';
    const bool wraps = isMinus ? number > 0 : number < 0;
    return {number, static_cast<size_t>(end - value.c_str()), errno != ERANGE && !wraps};
}

// The double in between is the range of a "double:", and a float that of a
// "float:".
Reading readFloat(const std::string& value, bool isDouble) {
    char* end = nullptr;
    errno = 0;
    const double number = std::strtod(value.c_str(), &end);
    const bool isRead = errno != ERANGE || (number != 0 && std::isfinite(number));
    const auto stored = static_cast<float>(number);
    const bool isKept = (stored == 0) == (number == 0) && std::isinf(stored) == std::isinf(number);
    return {stored, static_cast<size_t>(end - value.c_str()), isRead && (isDouble || isKept)};
}

// The shortest text of a float; without an exponent where people would write
// none.
std::string textOf(float value) {
    if (std::isnan(value)) {
        return "nan";
    }
    const float size = std::abs(value);
    const bool isPlain = size == 0 || (size >= 1e-4F && size < 1e15F);
    char text[64];
    const auto end = std::to_chars(std::begin(text),
                                   std::end(text),
                                   value,
                                   isPlain ? std::chars_format::fixed : std::chars_format::general);
    std::string shortest(std::begin(text), end.ptr);
    if (isPlain && shortest.find('.') == std::string::npos) {
        shortest += ".0";
    }
    return shortest;
}

}  // namespace

std::string_view untilNul(const std::string& text) {
    return text.c_str();
}

bool isTooLong(const Value& option) {
    return option.isString() && untilNul(option.text).size() > MOST_OPTION_BYTES;
}

std::optional<TypedText> typedIn(const Value& option) {
    if (!option.isString() || isTooLong(option)) {
        return std::nullopt;
    }
    TypedText typed;
    typed.text = untilNul(option.text);
    typed.word = typeWordOf(typed.text);
    if (typed.word.empty()) {
        return std::nullopt;
    }
    if (typed.text != typed.word) {
        typed.rest = typed.text.substr(typed.word.size() + 1);
    }
    typed.value = typed.rest.substr(0, typed.rest.find(':'));
    return typed;
}

Reading readingOf(const TypedText& typed) {
    if (typed.word == "int32") {
        return readInt32(typed.value);
    }
    if (typed.word == "int64") {
        return readInt64(typed.value);
    }
    return readFloat(typed.value, typed.word == "double");
}

int32_t toInt32(double number) {
    return static_cast<int32_t>(std::clamp<double>(
        number, std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max()));
}

std::optional<Stored> storedOf(const Value& option) {
    if (option.isNumber()) {
        return toInt32(option.number);
    }
    if (const auto typed = typedIn(option)) {
        return readingOf(*typed).stored;
    }
    if (option.isString() && !isTooLong(option)) {
        return std::string(untilNul(option.text));
    }
    return std::nullopt;
}

std::string textOf(const Stored& stored) {
    if (const auto* text = std::get_if<std::string>(&stored)) {
        return quoted(*text);
    }
    if (const auto* real = std::get_if<float>(&stored)) {
        return textOf(*real);
    }
    if (const auto* int64 = std::get_if<int64_t>(&stored)) {
        return std::to_string(*int64);
    }
    return std::to_string(std::get<int32_t>(stored));
}

std::string nameOf(const Value& option) {
    return quoted(untilNul(option.key));
}

std::string isStoredAs(const Value& option, const Stored& stored) {
    return nameOf(option) + " is stored as " + textOf(stored);
}

}  // namespace qvgraph
