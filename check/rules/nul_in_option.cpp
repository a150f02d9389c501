#include <string_view>

#include "check/rules.h"
#include "check/visiting.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

bool hasNul(std::string_view string) {
    return string.find('\0') != std::string_view::npos;
}

void reportNulInKey(const Option& option, Reporter* report) {
    const Value& member = *option.member;
    Finding& finding = report->atKey(
        member, nameOf(option) + " has a NUL in its key: the device ignores the rest of the key");
    finding.hint = "remove the NUL from the key";
    if (const Value* other = member.parent->member(untilNul(member.key))) {
        finding.related.push_back({"stored under the same key", other->keySpan});
    }
}

void reportNulInString(const Option& option, Reporter* report) {
    report
        ->atValue(*option.member,
                  nameOf(option) + " has a NUL in its string: it is stored as " +
                      quoted(untilNul(option.member->text)))
        .hint = "remove the NUL from the string";
}

void nulInOption(const Model& model, Reporter* report) {
    forEachOption(model, [report](const Option& option) {
        if (option.stored && hasNul(option.member->key)) {
            reportNulInKey(option, report);
        }
        if (option.stored && hasNul(option.member->text)) {
            reportNulInString(option, report);
        }
    });
}

}  // namespace

constinit const Rule NUL_IN_OPTION = {
    .code = "nul-in-option",
    .severity = Severity::Warning,
    .family = "options",
    .title = "An option's key or string contains a NUL",
    .explanation =
        "The key and the string of an option end at their first NUL, which JSON writes as \\u0000.",
    .device =
        "The parser stores what precedes the NUL. Two keys that differ only after it are the same "
        "key: the later option replaces the earlier one.",
    .fix = "Remove the NUL, or split the string into two options.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "link_0": {
    "names": "left\u0000right"
  }
}})",
            .fixed = R"({"pipe_0": {
  "link_0": {
    "names": "left right"
  }
}})",
        },
    .consequences = {&TYPED_VALUE, &TYPE_WORD, &DOUBLE_NARROWED},
    .find = nulInOption,
};

}  // namespace qvgraph
