// Numbers in options: those that are stored as others than are written, and
// those that are stored as texts.
#include "check/number_rules.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "check/stored_option.h"
#include "check/typed_text.h"
#include "check/words.h"

namespace qvgraph {

namespace {

const char* const BLANKS = " \t\n\v\f\r";
const char* const INT32_RANGE = "write a whole number from -2147483648 to 2147483647";
const char* const INT64_RANGE =
    "write a whole number from -9223372036854775808 to 9223372036854775807";
const char* const FLOAT_RANGE = "write 0, or a number of a size from 1.2e-38 to 3.4e38";

// ---- Numbers in hints -------------------------------------------------------

// A text without the blanks around it.
std::string trimmed(const std::string& text) {
    const size_t first = text.find_first_not_of(BLANKS);
    return first == std::string::npos
               ? ""
               : text.substr(first, text.find_last_not_of(BLANKS) - first + 1);
}

// The number that a whole text is, in any notation; nothing when it is none, or
// no finite one.
std::optional<double> numberIn(const std::string& text) {
    char* end = nullptr;
    const double number = std::strtod(text.c_str(), &end);
    if (text.empty() || *end != '\0' || !std::isfinite(number)) {
        return std::nullopt;
    }
    return number;
}

bool isInteger(double number) {
    return std::trunc(number) == number;
}

// Whether a double has the very integer that was written.
bool isExactInteger(double number) {
    return isInteger(number) && std::abs(number) < 9007199254740992.0;
}

// Whether it is an integer within 64 bits.
bool fitsInt64(double number) {
    const double end = 9223372036854775808.0;
    return isInteger(number) && number >= -end && number < end;
}

// Whether a text is written as a whole number, digit by digit.
bool isDigits(const std::string& number) {
    return number.find_first_not_of("+-0123456789") == std::string::npos;
}

bool fitsFloat(double number) {
    return std::isfinite(static_cast<float>(number));
}

bool isHexadecimal(const std::string& number) {
    return number.find_first_of("xX") != std::string::npos &&
           number.find_first_of(".pP") == std::string::npos;
}

// In base 0, such a number is octal or hexadecimal.
bool startsWithZero(const std::string& number) {
    const size_t first = number.find_first_not_of("+-");
    return first != std::string::npos && number[first] == '0';
}

std::string decimal(double number) {
    return std::to_string(static_cast<long long>(number));
}

// `write "int64:5"`, in the quotes that JSON wants.
std::string write(const std::string& word, const std::string& value) {
    return "write \"" + word + ':' + value + '"';
}

// ---- typed-value ------------------------------------------------------------

struct Fault {
    std::string message;
    std::string hint;
};

// What is behind the number that was read, a second ':' included; empty for
// blanks alone.
std::string ignoredIn(const TypedText& typed, const Reading& reading) {
    const std::string ignored = typed.rest.substr(reading.length);
    return trimmed(ignored).empty() ? "" : ignored;
}

std::string hintForNoNumber(const TypedText& typed) {
    return "write a number behind \"" + typed.word + ":\"; a text has to begin otherwise";
}

// The number that was read, without blanks.
std::string numberOf(const TypedText& typed, const Reading& reading) {
    return trimmed(typed.value.substr(0, reading.length));
}

std::string rangeHintOf(const TypedText& typed) {
    return !typed.isWhole() ? FLOAT_RANGE : typed.word == "int32" ? INT32_RANGE : INT64_RANGE;
}

bool isUnsigned64(const std::string& number) {
    errno = 0;
    std::strtoull(number.c_str(), nullptr, 0);
    return errno != ERANGE && number[0] != '-';
}

std::string hintForRange(const TypedText& typed, const Reading& reading) {
    const std::string number = numberOf(typed, reading);
    const auto meant = numberIn(number);
    if (typed.word == "int32" && meant && fitsInt64(*meant) && !startsWithZero(number)) {
        return write("int64", number);
    }
    if (typed.word == "int64" && isUnsigned64(number)) {
        return write("int64", textOf(reading.stored)) + " if these 64 bits are meant";
    }
    return rangeHintOf(typed);
}

// For what is a number, in a notation that the type does not read: "0x10",
// "1e3", "2.5", "09".
std::string hintForNotation(const TypedText& typed, const std::string& value, double meant) {
    if (!isInteger(meant) && fitsFloat(meant)) {
        return write("float", value);
    }
    if (!isExactInteger(meant)) {
        return rangeHintOf(typed);
    }
    const std::string word = meant == toInt32(meant) ? typed.word : "int64";
    if (isHexadecimal(value)) {
        return word == "int64"
                   ? write(word, value)
                   : write(word, decimal(meant)) + ": \"int64:\" alone reads hexadecimal numbers";
    }
    const bool isOctal = typed.word == "int64" && startsWithZero(value);
    return write(word, decimal(meant)) + (isOctal ? ": a 0 in front makes a number octal" : "");
}

// The digits of "4,000,000", "4_000_000" or "4 000 000"; "" where no such groups
// of three, all behind the same separator, are the whole text.
std::string withoutSeparators(const std::string& text) {
    const size_t begin = text.find_first_not_of("+-");
    const size_t first = text.find_first_not_of("0123456789", begin);
    if (first == std::string::npos || first - begin > 3 ||
        std::string_view(",_ ").find(text[first]) == std::string::npos) {
        return "";
    }
    const char separator = text[first];
    std::string number = text.substr(0, first);
    for (size_t group = first; group < text.size(); group += 4) {
        const std::string digits = text.substr(group + 1, 3);
        if (text[group] != separator || digits.size() != 3 ||
            digits.find_first_not_of("0123456789") != std::string::npos) {
            return "";
        }
        number += digits;
    }
    return startsWithZero(number) || !numberIn(number) ? "" : number;
}

// "1,5" for 1.5.
bool hasDecimalComma(const std::string& ignored) {
    return ignored.size() > 1 && ignored[0] == ',' &&
           ignored.find_first_not_of("0123456789", 1) == std::string::npos;
}

std::string hintForIgnored(const TypedText& typed,
                           const Reading& reading,
                           const std::string& ignored) {
    const std::string all = trimmed(typed.rest);
    const auto meant = numberIn(all);
    if (typed.isWhole() && meant) {
        return hintForNotation(typed, all, *meant);
    }
    const std::string number = numberOf(typed, reading);
    if (!typed.isWhole() && hasDecimalComma(ignored)) {
        return write(typed.word, number + '.' + ignored.substr(1));
    }
    const std::string digits = withoutSeparators(all);
    if (!digits.empty()) {
        return typed.isWhole() ? hintForNotation(typed, digits, *numberIn(digits))
                               : write(typed.word, digits);
    }
    // 'information' begins with 'inf'.
    return numberIn(number) ? write(typed.word, number) : hintForNoNumber(typed);
}

// The one thing to say of a value that is not stored as it is written.
std::optional<Fault> faultIn(const TypedText& typed, const Reading& reading) {
    const std::string text = quoted(typed.text);
    const std::string value = trimmed(typed.value);
    if (typed.text == typed.word) {
        return Fault{text + " alone is a type word, not a text", hintForNoNumber(typed)};
    }
    if (value.empty()) {
        return Fault{"the value in " + text + " is empty", hintForNoNumber(typed)};
    }
    if (reading.length == 0) {
        return Fault{quoted(value) + " in " + text + " is no number", hintForNoNumber(typed)};
    }
    if (!reading.fits) {
        return Fault{quoted(numberOf(typed, reading)) + " does not fit " +
                         (typed.isWhole() ? "an " : "a ") + typed.word,
                     hintForRange(typed, reading)};
    }
    const std::string ignored = ignoredIn(typed, reading);
    if (!ignored.empty()) {
        return Fault{quoted(ignored) + " behind the number in " + text + " is ignored",
                     hintForIgnored(typed, reading, ignored)};
    }
    return std::nullopt;
}

void typedValue(const Subject& subject, Reporter* report) {
    forEachOption(subject, [report](const Value& option) {
        if (const auto typed = typedIn(option)) {
            const Reading reading = readingOf(*typed);
            if (const auto fault = faultIn(*typed, reading)) {
                report->atValue(option, isStoredAs(option, reading.stored) + ": " + fault->message)
                    .hint = fault->hint;
            }
        }
    });
}

const Rule TYPED_VALUE = {
    "typed-value",
    Severity::Warning,
    "options",
    "the value of a typed option is not the number that is written",
    "Behind \"int32:\", \"int64:\", \"float:\" and \"double:\" stands one number, within the range "
    "of the type, and nothing else. An int32 is decimal; an int64 is decimal, hexadecimal with 0x "
    "or octal with a 0 in front. A type word alone is no text: it is the 0 of its type.",
    "The parser stores the number that the value begins with and ignores the rest. It stores 0 "
    "where there is none, the nearest number where an int32 or a float is out of range, and other "
    "64 bits where an int64 is.",
    "Write the number alone, in a type that holds it.",
    {
        R"({"pipe_0": {
  "link_0": {
    "timeout": "int32:250ms"
  }
}})",
        R"({"pipe_0": {
  "link_0": {
    "timeout_ms": "int32:250"
  }
}})",
        {},
    },
    {"option-type"},
    typedValue,
};

// ---- type-word --------------------------------------------------------------

// What has to stand behind a word for it to be taken for a type word.
enum class Behind { Integer, Number, Truth, Anything };

struct ForeignWord {
    const char* word;
    const char* meant;
    Behind behind;
};

// Type words of other languages, in lower case. A null `meant`: none is needed.
const ForeignWord FOREIGN_WORDS[] = {
    {"int", "int32", Behind::Integer},     {"integer", "int32", Behind::Integer},
    {"int8", "int32", Behind::Integer},    {"int8_t", "int32", Behind::Integer},
    {"int16", "int32", Behind::Integer},   {"int16_t", "int32", Behind::Integer},
    {"uint8", "int32", Behind::Integer},   {"uint8_t", "int32", Behind::Integer},
    {"uint16", "int32", Behind::Integer},  {"uint16_t", "int32", Behind::Integer},
    {"u8", "int32", Behind::Integer},      {"u16", "int32", Behind::Integer},
    {"i32", "int32", Behind::Integer},     {"int32_t", "int32", Behind::Integer},
    {"long", "int64", Behind::Integer},    {"unsigned", "int64", Behind::Integer},
    {"i64", "int64", Behind::Integer},     {"int64_t", "int64", Behind::Integer},
    {"uint", "int64", Behind::Integer},    {"size_t", "int64", Behind::Integer},
    {"uint32", "int64", Behind::Integer},  {"uint32_t", "int64", Behind::Integer},
    {"uint64", "int64", Behind::Integer},  {"uint64_t", "int64", Behind::Integer},
    {"u32", "int64", Behind::Integer},     {"u64", "int64", Behind::Integer},
    {"float16", "float", Behind::Number},  {"float32", "float", Behind::Number},
    {"float64", "double", Behind::Number}, {"number", "int32", Behind::Number},
    {"f32", "float", Behind::Number},      {"f64", "double", Behind::Number},
    {"bool", "int32", Behind::Truth},      {"boolean", "int32", Behind::Truth},
    {"string", nullptr, Behind::Anything}, {"str", nullptr, Behind::Anything},
};

// Words that are nearly type words, and mean something else.
const char* const OTHER_WORDS[] = {"flat", "bloat", "gloat", "floats", "doubled", "doubly"};

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return lower;
}

// The type word that a word in lower case is, or is nearly; null for none. A
// "float4" is something else.
const char* nearlyTypeWord(const std::string& lower) {
    const auto isOther = [&](const char* other) { return lower == other; };
    if (std::any_of(std::begin(OTHER_WORDS), std::end(OTHER_WORDS), isOther)) {
        return nullptr;
    }
    const bool hasDigit = lower.find_first_of("0123456789") != std::string::npos;
    for (const char* known : {"int32", "int64", "float", "double"}) {
        if (hasDigit == (*known == 'i') && distanceBetween(lower, known, 1) <= 1) {
            return known;
        }
    }
    return nullptr;
}

// What a word in lower case was meant to be, if it was meant for a type word.
std::optional<ForeignWord> mistakenWord(const std::string& lower) {
    const auto* const found = std::find_if(
        std::begin(FOREIGN_WORDS), std::end(FOREIGN_WORDS), [&](const ForeignWord& foreign) {
            return lower == foreign.word;
        });
    if (found != std::end(FOREIGN_WORDS)) {
        return *found;
    }
    if (const char* nearly = nearlyTypeWord(lower)) {
        return ForeignWord{"", nearly, Behind::Number};
    }
    return std::nullopt;
}

bool isTruth(const std::string& value) {
    const std::string lower = lowerCase(value);
    return lower == "true" || lower == "false" || lower == "0" || lower == "1";
}

bool readsAs(Behind behind, const std::string& value) {
    const auto number = numberIn(value);
    switch (behind) {
        case Behind::Integer:
            return number && isInteger(*number);
        case Behind::Number:
            return number.has_value();
        case Behind::Truth:
            return isTruth(value);
        case Behind::Anything:
            return true;
    }
    return false;
}

// A number behind the type word that was meant, or behind the one that holds it.
std::string writeNumber(const std::string& meant, const std::string& value) {
    const double number = numberIn(value).value_or(0);
    if (meant[0] != 'i') {
        return write(meant, value);
    }
    if (!isInteger(number)) {
        return write("float", value);
    }
    const bool fits = meant == "int32" && number == toInt32(number);
    const bool isPlain = isExactInteger(number) && (fits || !isHexadecimal(value));
    const std::string plain = isPlain ? decimal(number) : value;
    const TypedText typed = {meant + ':' + plain, meant, plain, plain};
    return write(faultIn(typed, readingOf(typed)) ? "int64" : meant, plain);
}

std::string hintForWord(const ForeignWord& foreign,
                        const std::string& word,
                        const std::string& value) {
    if (foreign.behind == Behind::Anything) {
        return "leave out " + quoted(word + ':') + ": a text has no type word";
    }
    if (foreign.behind == Behind::Truth) {
        const bool isTrue = value == "1" || lowerCase(value) == "true";
        return write("int32", isTrue ? "1" : "0");
    }
    return writeNumber(foreign.meant, value);
}

void typeWord(const Subject& subject, Reporter* report) {
    forEachOption(subject, [report](const Value& option) {
        const std::string text(untilNul(option.text));
        const size_t colon = text.find(':');
        if (colon == std::string::npos || isTooLong(option) || !typeWordOf(text).empty()) {
            return;
        }
        const std::string word = text.substr(0, colon);
        const std::string value = trimmed(text.substr(colon + 1));
        const auto foreign = mistakenWord(lowerCase(word));
        if (foreign && readsAs(foreign->behind, value)) {
            report
                ->atValue(option,
                          nameOf(option) + " is stored as the text " + quoted(text) + ": " +
                              quoted(word) + " is no type word")
                .hint = hintForWord(*foreign, word, value);
        }
    });
}

const Rule TYPE_WORD = {
    "type-word",
    Severity::Warning,
    "options",
    "an option begins with what is nearly a type word",
    "There are four type words, in lower case: int32, int64, float and double. A text that begins "
    "with a word that is nearly one of them, or with one of another language such as uint8, bool "
    "or string, and goes on with a value that fits it, was probably meant to be typed.",
    "The parser stores the whole as a text, the word and the ':' included. Whoever asks for a "
    "number finds none.",
    "Write one of the four words; write 1 and 0 for true and false; write a text as it is.",
    {
        R"({"pipe_0": {
  "link_0": {
    "timeout": "Int32:250",
    "camera": "hw:0"
  }
}})",
        R"({"pipe_0": {
  "link_0": {
    "timeout": "int32:250",
    "camera": "hw:0"
  }
}})",
        {},
    },
    {"option-type"},
    typeWord,
};

// ---- number-lost ------------------------------------------------------------

std::string hintForLost(const std::string& text, double number, bool isOutside) {
    if (isOutside && isDigits(text) && fitsInt64(number)) {
        return write("int64", text);
    }
    if (isOutside && isExactInteger(number)) {
        return write("int64", decimal(number));
    }
    return fitsFloat(number) && text.size() < 30 ? write("float", text) : INT32_RANGE;
}

void numberLost(const Subject& subject, Reporter* report) {
    const std::string& text = subject.source().text();
    forEachOption(subject, [&](const Value& option) {
        const int32_t stored = toInt32(option.number);
        if (!option.isNumber() || option.number == stored) {
            return;
        }
        const std::string number =
            text.substr(option.span.begin, option.span.end - option.span.begin);
        const bool isOutside = std::trunc(option.number) != stored;
        const std::string lost = isOutside ? quoted(number) + " does not fit an int32"
                                           : "the fraction of " + quoted(number) + " is dropped";
        report->atValue(option, isStoredAs(option, stored) + ": " + lost).hint =
            hintForLost(number, option.number, isOutside);
    });
}

const Rule NUMBER_LOST = {
    "number-lost",
    Severity::Warning,
    "options",
    "a number has a fraction, or lies outside 32 bits",
    "A JSON number becomes a 32-bit integer, whatever it looks like. Other numbers are written as "
    "texts with a type word.",
    "The parser drops the fraction, and takes the nearest end of the range for what lies outside "
    "-2147483648 to 2147483647.",
    "Write \"float:0.5\" in place of 0.5, and \"int64:3000000000\" in place of 3000000000.",
    {
        R"({"pipe_0": {
  "link_0": {
    "gain": 0.5
  }
}})",
        R"({"pipe_0": {
  "link_0": {
    "gain": "float:0.5"
  }
}})",
        {},
    },
    {"option-type"},
    numberLost,
};

// ---- double-narrowed --------------------------------------------------------

// The digits of a whole number from the first that is not 0.
std::string_view digitsIn(std::string_view number) {
    return number.substr(std::min(number.find_first_not_of("+-0"), number.size()));
}

// A float as the double that it is: its digits where the text has nothing but
// digits, otherwise as short as can be.
std::string exactText(float stored, const std::string& value) {
    char text[64];
    const auto end =
        isDigits(value)
            ? std::to_chars(std::begin(text),
                            std::end(text),
                            static_cast<double>(stored),
                            std::chars_format::fixed)
            : std::to_chars(std::begin(text), std::end(text), static_cast<double>(stored));
    return {std::begin(text), end.ptr};
}

// Whether a float still is the number. That it is rounded to 24 bits is what a
// float is; but a whole number is written digit by digit because each counts.
bool isKept(const std::string& value, double number, float stored) {
    if (!std::isfinite(number)) {
        return true;
    }
    if (isDigits(value)) {
        return digitsIn(exactText(stored, value)) == digitsIn(value);
    }
    const double change = std::abs(number - static_cast<double>(stored));
    return change <= std::abs(number) / (1 << 24);
}

std::string hintForNarrowed(const std::string& value, double number, bool isOutside) {
    if (isOutside || !isDigits(value)) {
        return FLOAT_RANGE;
    }
    if (isExactInteger(number)) {
        return write("int64", decimal(number));
    }
    return fitsInt64(number) && !startsWithZero(value)
               ? write("int64", value)
               : "write it with an exponent if its last digits do not count";
}

void doubleNarrowed(const Subject& subject, Reporter* report) {
    forEachOption(subject, [report](const Value& option) {
        const auto typed = typedIn(option);
        if (!typed || typed->word != "double" || faultIn(*typed, readingOf(*typed))) {
            return;
        }
        const float stored = std::get<float>(readingOf(*typed).stored);
        const std::string value = trimmed(typed->value);
        const double number = std::strtod(value.c_str(), nullptr);
        if (!isKept(value, number, stored)) {
            report
                ->atValue(option,
                          nameOf(option) + " is stored as " + exactText(stored, value) +
                              ": a \"double:\" is kept as a float, which cannot hold " +
                              quoted(value))
                .hint = hintForNarrowed(value, number, std::isinf(stored));
        }
    });
}

const Rule DOUBLE_NARROWED = {
    "double-narrowed",
    Severity::Note,
    "options",
    "a double does not survive being stored as a float",
    "Stores keep a \"double:\" as a 32-bit float. That 0.1 is rounded to 24 bits is as it should "
    "be. What is told is a number that becomes infinite, a number so small that it becomes 0 or "
    "loses more than that rounding, and a whole number that becomes another one.",
    "The parser stores the float, through the same setter as for a \"float:\", while its record "
    "shows the double.",
    "Write a whole number as an \"int64:\"; choose another unit for very large and very small "
    "ones.",
    {
        R"({"pipe_0": {
  "link_0": {
    "start": "double:1700000001"
  }
}})",
        R"({"pipe_0": {
  "link_0": {
    "start": "int64:1700000001"
  }
}})",
        {},
    },
    {},
    doubleNarrowed,
};

}  // namespace

std::vector<Rule> numberRules() {
    return {TYPED_VALUE, TYPE_WORD, NUMBER_LOST, DOUBLE_NARROWED};
}

}  // namespace qvgraph
