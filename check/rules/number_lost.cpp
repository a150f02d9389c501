#include <cmath>
#include <string>
#include <variant>

#include "check/numbers.h"
#include "check/rules.h"
#include "check/visiting.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

std::string hintFor(const std::string& written, double number, bool isOutOfRange) {
    if (isOutOfRange && isWrittenInDigits(written) && fitsInt64(number)) {
        return hintToWriteTyped("int64", written);
    }
    if (isOutOfRange && isSafeInteger(number)) {
        return hintToWriteTyped("int64", toDecimal(number));
    }
    const bool isShort = written.size() < 30;
    return fitsFloat(number) && isShort ? hintToWriteTyped("float", written) : INT32_RANGE_HINT;
}

void numberLost(const Model& model, Reporter* report) {
    forEachOption(model, [&](const Option& option) {
        const Value& value = *option.member;
        if (!value.isNumber()) {
            return;
        }
        const auto stored = static_cast<double>(std::get<int32_t>(*option.stored));
        if (value.number == stored) {
            return;
        }
        const std::string written(model.source().text(value.span));
        const bool isOutOfRange = std::trunc(value.number) != stored;
        const std::string reason = isOutOfRange
                                       ? quoted(written) + " does not fit in an int32"
                                       : "the device drops the fraction of " + quoted(written);
        report->atValue(value, isStoredAs(option) + ": " + reason).hint =
            hintFor(written, value.number, isOutOfRange);
    });
}

}  // namespace

constinit const Rule NUMBER_LOST = {
    .code = "number-lost",
    .severity = Severity::Warning,
    .family = "options",
    .title = "A number has a fraction or is outside the range of int32",
    .explanation =
        "The parser stores every JSON number as a 32-bit integer. Write other numbers as strings "
        "with a type word.",
    .device =
        "The parser drops the fraction. It stores the nearest limit for a number outside "
        "-2147483648 to 2147483647.",
    .fix = "Write \"float:0.5\" instead of 0.5, and \"int64:3000000000\" instead of 3000000000.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "link_0": {
    "gain": 0.5
  }
}})",
            .fixed = R"({"pipe_0": {
  "link_0": {
    "gain": "float:0.5"
  }
}})",
        },
    .consequences = {&OPTION_TYPE},
    .find = numberLost,
};

}  // namespace qvgraph
