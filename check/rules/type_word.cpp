#include <algorithm>
#include <iterator>
#include <optional>
#include <string>

#include "check/numbers.h"
#include "check/rules.h"
#include "check/similar.h"
#include "check/typed_fault.h"
#include "check/typed_string.h"
#include "check/visiting.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

// The value that must follow a word for it to be taken for a type word.
enum class Expected { Integer, Number, Boolean, Anything };

struct ForeignWord {
    const char* word;
    const char* intended;  // the type word to use; null if none is required
    Expected expected;
};

// Type words of other languages, in lower case.
const ForeignWord FOREIGN_WORDS[] = {
    {"int", "int32", Expected::Integer},     {"integer", "int32", Expected::Integer},
    {"int8", "int32", Expected::Integer},    {"int8_t", "int32", Expected::Integer},
    {"int16", "int32", Expected::Integer},   {"int16_t", "int32", Expected::Integer},
    {"uint8", "int32", Expected::Integer},   {"uint8_t", "int32", Expected::Integer},
    {"uint16", "int32", Expected::Integer},  {"uint16_t", "int32", Expected::Integer},
    {"u8", "int32", Expected::Integer},      {"u16", "int32", Expected::Integer},
    {"i32", "int32", Expected::Integer},     {"int32_t", "int32", Expected::Integer},
    {"long", "int64", Expected::Integer},    {"unsigned", "int64", Expected::Integer},
    {"i64", "int64", Expected::Integer},     {"int64_t", "int64", Expected::Integer},
    {"uint", "int64", Expected::Integer},    {"size_t", "int64", Expected::Integer},
    {"uint32", "int64", Expected::Integer},  {"uint32_t", "int64", Expected::Integer},
    {"uint64", "int64", Expected::Integer},  {"uint64_t", "int64", Expected::Integer},
    {"u32", "int64", Expected::Integer},     {"u64", "int64", Expected::Integer},
    {"float16", "float", Expected::Number},  {"float32", "float", Expected::Number},
    {"float64", "double", Expected::Number}, {"number", "int32", Expected::Number},
    {"f32", "float", Expected::Number},      {"f64", "double", Expected::Number},
    {"bool", "int32", Expected::Boolean},    {"boolean", "int32", Expected::Boolean},
    {"string", nullptr, Expected::Anything}, {"str", nullptr, Expected::Anything},
};

// Words that are similar to type words but have a different meaning.
const char* const OTHER_WORDS[] = {"flat", "bloat", "gloat", "floats", "doubled", "doubly"};

// The type word that a word in lower case equals or resembles; null if there is
// none. Only integer types have digits: a "float4" resembles none.
const char* similarTypeWord(const std::string& lower) {
    const auto isOther = [&](const char* other) { return lower == other; };
    if (std::any_of(std::begin(OTHER_WORDS), std::end(OTHER_WORDS), isOther)) {
        return nullptr;
    }
    const bool hasDigit = lower.find_first_of("0123456789") != std::string::npos;
    for (const char* typeWord : {"int32", "int64", "float", "double"}) {
        if (hasDigit == (*typeWord == 'i') && distanceBetween(lower, typeWord, 1) <= 1) {
            return typeWord;
        }
    }
    return nullptr;
}

// The type word that a word in lower case was probably intended to be, if any.
std::optional<ForeignWord> mistakenWord(const std::string& lower, const std::string& value) {
    const auto* const found = std::find_if(
        std::begin(FOREIGN_WORDS), std::end(FOREIGN_WORDS), [&](const ForeignWord& foreign) {
            return lower == foreign.word;
        });
    if (found != std::end(FOREIGN_WORDS)) {
        return *found;
    }
    const char* const similar = parseNumber(value) ? similarTypeWord(lower) : nullptr;
    if (similar == nullptr) {
        return std::nullopt;
    }
    return ForeignWord{"", similar, Expected::Number};
}

bool isBoolean(const std::string& value) {
    const std::string lower = lowerCase(value);
    return lower == "true" || lower == "false" || lower == "0" || lower == "1";
}

bool isExpected(Expected expected, const std::string& value) {
    const auto number = parseNumber(value);
    switch (expected) {
        case Expected::Integer:
            return number && isInteger(*number);
        case Expected::Number:
            return number.has_value();
        case Expected::Boolean:
            return isBoolean(value);
        case Expected::Anything:
            return true;
    }
    return false;
}

// The number with the intended type word, or with the one that holds it.
std::string hintForNumber(const std::string& intended, const std::string& value) {
    const double number = parseNumber(value).value_or(0);
    if (intended[0] != 'i') {
        return hintToWriteTyped(intended, value);
    }
    if (!isInteger(number)) {
        return hintToWriteTyped("float", value);
    }
    const bool fits = intended == "int32" && fitsInt32(number);
    const bool isDecimal = isSafeInteger(number) && (fits || !isHexInteger(value));
    const std::string digits = isDecimal ? toDecimal(number) : value;
    return hintToWriteTyped(faultIn(typedString(intended, digits)) ? "int64" : intended, digits);
}

std::string hintForWord(const ForeignWord& foreign,
                        const std::string& word,
                        const std::string& value) {
    if (foreign.expected == Expected::Anything) {
        return "remove " + quoted(word + ':') + "; a string has no type word";
    }
    if (foreign.expected == Expected::Boolean) {
        const bool isTrue = value == "1" || lowerCase(value) == "true";
        return hintToWriteTyped("int32", isTrue ? "1" : "0");
    }
    return hintForNumber(foreign.intended, value);
}

void typeWord(const Model& model, Reporter* report) {
    forEachOption(model, [report](const Option& option) {
        const std::string_view string = untilNul(option.member->text);
        const size_t colon = string.find(':');
        if (colon == std::string_view::npos || isTooLong(option) || hasTypeWord(string)) {
            return;
        }
        const std::string word(string.substr(0, colon));
        const std::string value = trimmed(std::string(string.substr(colon + 1)));
        const auto foreign = mistakenWord(lowerCase(word), value);
        if (foreign && isExpected(foreign->expected, value)) {
            report
                ->atValue(*option.member,
                          nameOf(option) + " is stored as the string " + quoted(string) + ": " +
                              quoted(word) + " is not a type word")
                .hint = hintForWord(*foreign, word, value);
        }
    });
}

}  // namespace

constinit const Rule TYPE_WORD = {
    .code = "type-word",
    .severity = Severity::Warning,
    .family = "options",
    .title = "An option begins with a misspelt type word",
    .explanation =
        "The type words are int32, int64, float and double, in lower case. A string was probably "
        "intended to be typed if it begins with a similar word, or with a type of another language "
        "such as uint8, bool or string, and continues with a value of that type.",
    .device =
        "The parser stores the entire string, including the word and the ':'. A lookup of a number "
        "finds nothing.",
    .fix =
        "Use one of the four type words. Write 1 for true and 0 for false. Write a string without "
        "a type word.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "link_0": {
    "timeout": "Int32:250",
    "camera": "hw:0"
  }
}})",
            .fixed = R"({"pipe_0": {
  "link_0": {
    "timeout": "int32:250",
    "camera": "hw:0"
  }
}})",
        },
    .consequences = {&OPTION_TYPE},
    .find = typeWord,
};

}  // namespace qvgraph
