#include "check/typed_fault.h"

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "check/numbers.h"
#include "survey/words.h"

namespace qvgraph {

namespace {

// What follows the number that was read, including a second ':'; empty if that
// is only whitespace.
std::string ignoredIn(const TypedString& typed) {
    const std::string ignored = typed.rest.substr(numberWrittenIn(typed).length);
    return trimmed(ignored).empty() ? "" : ignored;
}

std::string hintForNoNumber(const TypedString& typed) {
    return "write a number after \"" + typed.word +
           ":\", or start the string with a different word";
}

// The number that was read, without whitespace.
std::string numberOf(const TypedString& typed) {
    return trimmed(typed.value.substr(0, numberWrittenIn(typed).length));
}

std::string rangeHintOf(const TypedString& typed) {
    return !typed.isInteger()      ? FLOAT_RANGE_HINT
           : typed.word == "int32" ? INT32_RANGE_HINT
                                   : INT64_RANGE_HINT;
}

// Whether a number is within the range of uint64, as base 0 reads it.
bool fitsUint64(const std::string& number) {
    errno = 0;
    std::strtoull(number.c_str(), nullptr, 0);
    return errno != ERANGE && number[0] != '-';
}

// The int64 with the same bits as a uint64.
std::string toInt64(const std::string& number) {
    return std::to_string(static_cast<int64_t>(std::strtoull(number.c_str(), nullptr, 0)));
}

std::string hintForRange(const TypedString& typed) {
    const std::string number = numberOf(typed);
    const auto intended = parseNumber(number);
    if (typed.word == "int32" && intended && fitsInt64(*intended) && !hasLeadingZero(number)) {
        return hintToWriteTyped("int64", number);
    }
    if (typed.word == "int64" && fitsUint64(number)) {
        return hintToWriteTyped("int64", toInt64(number)) + " if you intended these 64 bits";
    }
    return rangeHintOf(typed);
}

// For a number in a notation that the type does not read: "0x10", "1e3", "2.5",
// "09".
std::string hintForNotation(const TypedString& typed, const std::string& value, double intended) {
    if (!isInteger(intended) && fitsFloat(intended)) {
        return hintToWriteTyped("float", value);
    }
    if (!isSafeInteger(intended)) {
        return rangeHintOf(typed);
    }
    const std::string word = fitsInt32(intended) ? typed.word : "int64";
    if (isHexInteger(value)) {
        return word == "int64" ? hintToWriteTyped(word, value)
                               : hintToWriteTyped(word, toDecimal(intended)) +
                                     "; only \"int64:\" accepts hexadecimal numbers";
    }
    const bool isOctal = typed.word == "int64" && hasLeadingZero(value);
    return hintToWriteTyped(word, toDecimal(intended)) +
           (isOctal ? "; a leading 0 makes a number octal" : "");
}

// The digits of "4,000,000", "4_000_000" or "4 000 000"; "" if a string does not
// consist of groups of three digits with the same separator between them.
std::string withoutSeparators(const std::string& string) {
    const size_t begin = string.find_first_not_of("+-");
    const size_t first = string.find_first_not_of("0123456789", begin);
    if (first == std::string::npos || first - begin > 3 ||
        std::string_view(",_ ").find(string[first]) == std::string::npos) {
        return "";
    }
    const char separator = string[first];
    std::string number = string.substr(0, first);
    for (size_t group = first; group < string.size(); group += 4) {
        const std::string digits = string.substr(group + 1, 3);
        if (string[group] != separator || digits.size() != 3 ||
            digits.find_first_not_of("0123456789") != std::string::npos) {
            return "";
        }
        number += digits;
    }
    return hasLeadingZero(number) || !parseNumber(number) ? "" : number;
}

// Whether a number continues with a comma and digits: "1,5" instead of 1.5.
bool hasDecimalComma(const std::string& ignored) {
    return ignored.size() > 1 && ignored[0] == ',' &&
           ignored.find_first_not_of("0123456789", 1) == std::string::npos;
}

std::string hintForIgnored(const TypedString& typed, const std::string& ignored) {
    const std::string all = trimmed(typed.rest);
    const auto intended = parseNumber(all);
    if (typed.isInteger() && intended) {
        return hintForNotation(typed, all, *intended);
    }
    const std::string number = numberOf(typed);
    if (!typed.isInteger() && hasDecimalComma(ignored)) {
        return hintToWriteTyped(typed.word, number + '.' + ignored.substr(1));
    }
    const std::string digits = withoutSeparators(all);
    if (!digits.empty()) {
        return typed.isInteger() ? hintForNotation(typed, digits, *parseNumber(digits))
                                 : hintToWriteTyped(typed.word, digits);
    }
    // 'information' begins with the infinity 'inf'.
    return parseNumber(number) ? hintToWriteTyped(typed.word, number) : hintForNoNumber(typed);
}

}  // namespace

std::optional<Fault> faultIn(const TypedString& typed) {
    const std::string text = quoted(typed.text);
    const std::string value = trimmed(typed.value);
    if (typed.text == typed.word) {
        return Fault{text + " is a type word without a value", hintForNoNumber(typed)};
    }
    if (value.empty()) {
        return Fault{"the value in " + text + " is empty", hintForNoNumber(typed)};
    }
    const WrittenNumber number = numberWrittenIn(typed);
    if (number.length == 0) {
        return Fault{quoted(value) + " in " + text + " is not a number", hintForNoNumber(typed)};
    }
    if (!number.fits) {
        return Fault{quoted(numberOf(typed)) + " does not fit in " +
                         (typed.isInteger() ? "an " : "a ") + typed.word,
                     hintForRange(typed)};
    }
    const std::string ignored = ignoredIn(typed);
    if (!ignored.empty()) {
        return Fault{"the device ignores " + quoted(ignored) + " after the number in " + text,
                     hintForIgnored(typed, ignored)};
    }
    return std::nullopt;
}

}  // namespace qvgraph
