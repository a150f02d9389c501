#include "check/rules.h"
#include "check/typed_fault.h"
#include "check/typed_string.h"
#include "check/visiting.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

void typedValue(const Model& model, Reporter* report) {
    forEachOption(model, [report](const Option& option) {
        const auto typed = typedStringIn(option);
        if (!typed) {
            return;
        }
        if (const auto fault = faultIn(*typed)) {
            report->atValue(*option.member, isStoredAs(option) + ": " + fault->message).hint =
                fault->hint;
        }
    });
}

}  // namespace

constinit const Rule TYPED_VALUE = {
    .code = "typed-value",
    .severity = Severity::Warning,
    .family = "options",
    .title = "A typed option is stored as a different number",
    .explanation =
        "\"int32:\", \"int64:\", \"float:\" and \"double:\" are followed by one number within the "
        "range of the type, and by nothing else. An int32 is decimal. An int64 is decimal, "
        "hexadecimal with a leading 0x, or octal with a leading 0. A type word without a value is "
        "not a string: it is stored as 0.",
    .device =
        "The parser stores the number at the beginning of the value and ignores the rest. It "
        "stores 0 if there is no number, the nearest value if an int32 or a float is out of range, "
        "and a different value if an int64 is out of range.",
    .fix = "Write only the number, with a type that holds it.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "link_0": {
    "timeout": "int32:250ms"
  }
}})",
            .fixed = R"({"pipe_0": {
  "link_0": {
    "timeout_ms": "int32:250"
  }
}})",
        },
    .consequences = {&OPTION_TYPE},
    .find = typedValue,
};

}  // namespace qvgraph
