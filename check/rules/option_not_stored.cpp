#include <string>

#include "check/rules.h"
#include "check/visiting.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

std::string hintFor(const Value& option, const Source& source) {
    switch (option.kind) {
        case ValueKind::Null:
            return "write a number or a string, or remove it";
        case ValueKind::Bool:
            return source.text()[option.span.begin] == 't' ? "write 1 instead of true"
                                                           : "write 0 instead of false";
        case ValueKind::Array:
            return "give each element its own key";
        case ValueKind::Object:
            return "move its members up, next to the other options";
        case ValueKind::Number:
        case ValueKind::String:
            break;
    }
    return "";
}

void optionNotStored(const Model& model, Reporter* report) {
    forEachOption(model, [&](const Option& each) {
        const Value& option = *each.member;
        if (!option.isNumber() && !option.isString()) {
            report
                ->atValue(option,
                          nameOf(each) + " is " + toText(option.kind) +
                              ", not a number or a string: it is not stored")
                .hint = hintFor(option, model.source());
        }
    });
}

}  // namespace

constinit const Rule OPTION_NOT_STORED = {
    .code = "option-not-stored",
    .severity = Severity::Warning,
    .family = "options",
    .title = "An option is neither a number nor a string",
    .explanation =
        "An option store holds numbers and strings. The parser does not store null, booleans, "
        "arrays or objects.",
    .device =
        "The parser skips the option without a log record. A lookup of the option finds nothing.",
    .fix = "Write 1 for true and 0 for false. Give each element or member its own key.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "link_0": {
    "drop_late": true
  }
}})",
            .fixed = R"({"pipe_0": {
  "link_0": {
    "drop_late": 1
  }
}})",
        },
    .find = optionNotStored,
};

}  // namespace qvgraph
