#include "check/typed_string.h"

#include <cerrno>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <variant>

#include "check/numbers.h"

namespace qvgraph {

namespace {

WrittenNumber int32In(const std::string& value) {
    char* end = nullptr;
    const long long number = std::strtoll(value.c_str(), &end, 10);
    return {static_cast<size_t>(end - value.c_str()),
            number >= std::numeric_limits<int32_t>::min() &&
                number <= std::numeric_limits<int32_t>::max()};
}

// The parser converts to an unsigned integer, so that a number out of range gets
// the opposite sign.
WrittenNumber int64In(const std::string& value) {
    char* end = nullptr;
    errno = 0;
    const auto number = static_cast<int64_t>(std::strtoull(value.c_str(), &end, 0));
    const size_t first = value.find_first_not_of(WHITESPACE);
    const bool isNegative = first != std::string::npos && value[first] == '-';
    const bool wraps = isNegative ? number > 0 : number < 0;
    return {static_cast<size_t>(end - value.c_str()), errno != ERANGE && !wraps};
}

WrittenNumber realIn(const std::string& value, bool isDouble) {
    char* end = nullptr;
    errno = 0;
    const double number = std::strtod(value.c_str(), &end);
    const bool fitsDouble = errno != ERANGE || (number != 0 && std::isfinite(number));
    const auto narrow = static_cast<float>(number);
    const bool fitsFloat =
        (narrow == 0) == (number == 0) && std::isinf(narrow) == std::isinf(number);
    return {static_cast<size_t>(end - value.c_str()), fitsDouble && (isDouble || fitsFloat)};
}

// A string up to its first ':', or all of it.
std::string_view firstWord(std::string_view string) {
    return string.substr(0, string.find(':'));
}

}  // namespace

bool isTooLong(const Option& option) {
    return option.member->isString() && !option.stored;
}

bool hasTypeWord(std::string_view string) {
    const std::string_view word = firstWord(string);
    return word == "int32" || word == "int64" || word == "float" || word == "double";
}

std::optional<TypedString> typedStringIn(const Option& option) {
    const bool isTyped = option.member->isString() && option.stored &&
                         !std::holds_alternative<std::string>(*option.stored);
    if (!isTyped) {
        return std::nullopt;
    }
    TypedString typed;
    typed.text = untilNul(option.member->text);
    typed.word = firstWord(typed.text);
    if (typed.text != typed.word) {
        typed.rest = typed.text.substr(typed.word.size() + 1);
    }
    typed.value = typed.rest.substr(0, typed.rest.find(':'));
    return typed;
}

TypedString typedString(const std::string& word, const std::string& value) {
    return {.text = word + ':' + value, .word = word, .value = value, .rest = value};
}

WrittenNumber numberWrittenIn(const TypedString& typed) {
    if (typed.word == "int32") {
        return int32In(typed.value);
    }
    if (typed.word == "int64") {
        return int64In(typed.value);
    }
    return realIn(typed.value, typed.word == "double");
}

}  // namespace qvgraph
