#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <variant>

#include "check/numbers.h"
#include "check/rules.h"
#include "check/typed_fault.h"
#include "check/typed_string.h"
#include "check/visiting.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

// The digits of an integer without sign and leading zeros.
std::string_view digitsOf(std::string_view number) {
    return number.substr(std::min(number.find_first_not_of("+-0"), number.size()));
}

// A stored float in the notation of the value that was written: all of its digits,
// or as few as distinguish it from every other double.
std::string textOf(float stored, const std::string& value) {
    const auto number = static_cast<double>(stored);
    char text[64];  // a float has at most 39 digits before the point
    if (isWrittenInDigits(value)) {
        snprintf(text, sizeof(text), "%.0f", number);
        return text;
    }
    const int enough = 17;
    for (int precision = 1;; ++precision) {
        snprintf(text, sizeof(text), "%.*g", precision, number);
        if (precision == enough || std::strtod(text, nullptr) == number) {
            return text;
        }
    }
}

// Whether a float represents the number. Rounding to 24 bits is expected, except
// for an integer in digits, of which every digit is significant.
bool isKept(const std::string& value, double number, float stored) {
    if (!std::isfinite(number)) {
        return true;
    }
    if (isWrittenInDigits(value)) {
        return digitsOf(textOf(stored, value)) == digitsOf(value);
    }
    const double change = std::abs(number - static_cast<double>(stored));
    return change <= std::abs(number) / (1 << 24);
}

std::string hintFor(const std::string& value, double number, bool isInfinite) {
    if (isInfinite || !isWrittenInDigits(value)) {
        return FLOAT_RANGE_HINT;
    }
    if (isSafeInteger(number)) {
        return hintToWriteTyped("int64", toDecimal(number));
    }
    return fitsInt64(number) && !hasLeadingZero(value)
               ? hintToWriteTyped("int64", value)
               : "write it with an exponent if its last digits do not matter";
}

void doubleNarrowed(const Model& model, Reporter* report) {
    forEachOption(model, [report](const Option& option) {
        const auto typed = typedStringIn(option);
        if (!typed || typed->word != "double" || faultIn(*typed)) {
            return;
        }
        const float stored = std::get<float>(*option.stored);
        const std::string value = trimmed(typed->value);
        const double number = std::strtod(value.c_str(), nullptr);
        if (!isKept(value, number, stored)) {
            report
                ->atValue(*option.member,
                          nameOf(option) + " is stored as " + textOf(stored, value) +
                              ": the device narrows a \"double:\" to a float, which cannot "
                              "represent " +
                              quoted(value))
                .hint = hintFor(value, number, std::isinf(stored));
        }
    });
}

}  // namespace

constinit const Rule DOUBLE_NARROWED = {
    .code = "double-narrowed",
    .severity = Severity::Note,
    .family = "options",
    .title = "A double does not fit in the float that it is stored as",
    .explanation =
        "The parser stores a \"double:\" as a 32-bit float. Rounding 0.1 to 24 bits is expected "
        "and not reported. Reported are a number that becomes infinite, a number so small that it "
        "becomes 0 or changes by more than that rounding, and an integer that becomes a different "
        "integer.",
    .device =
        "The parser stores the float through the same setter as a \"float:\". Its log record shows "
        "the double.",
    .fix =
        "Write an integer as an \"int64:\". Choose a different unit for very large and very small "
        "numbers.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "link_0": {
    "start": "double:1700000001"
  }
}})",
            .fixed = R"({"pipe_0": {
  "link_0": {
    "start": "int64:1700000001"
  }
}})",
        },
    .find = doubleNarrowed,
};

}  // namespace qvgraph
