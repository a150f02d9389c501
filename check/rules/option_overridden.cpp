#include <cmath>
#include <string>
#include <variant>

#include "check/rules.h"
#include "check/visiting.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

bool isNan(const OptionValue& stored) {
    const auto* real = std::get_if<float>(&stored);
    return real != nullptr && std::isnan(*real);
}

bool isSame(const OptionValue& a, const OptionValue& b) {
    return a == b || (isNan(a) && isNan(b));
}

// Names the type of a number, too, because two values may differ only in type.
std::string typedTextOf(const OptionValue& stored) {
    static const char* const TYPES[] = {"", "int32 ", "int64 ", "float "};
    return TYPES[stored.index()] + valueText(stored);
}

// The last option that sets the key, whose value the store keeps.
const Option& winnerOver(const Option& option) {
    const Option* winner = &option;
    while (winner->overriddenBy != nullptr) {
        winner = winner->overriddenBy;
    }
    return *winner;
}

void reportOverridden(const Option& option, const Option& winner, Reporter* report) {
    Finding& finding = report->atKey(*option.member,
                                     nameOf(option) + " is overridden by " +
                                         inDoubleQuotes(winner.member->parent->key) +
                                         ": the device stores " + typedTextOf(*winner.stored));
    finding.related.push_back({"overridden here", winner.member->keySpan});
    finding.hint = "remove the one that you did not intend";
}

void optionOverridden(const Model& model, Reporter* report) {
    forEachOption(model, [report](const Option& option) {
        const Option& winner = winnerOver(option);
        const bool isInSameObject = winner.member->parent == option.member->parent;
        if (option.stored && !isInSameObject && !isSame(*winner.stored, *option.stored)) {
            reportOverridden(option, winner, report);
        }
    });
}

}  // namespace

constinit const Rule OPTION_OVERRIDDEN = {
    .code = "option-overridden",
    .severity = Severity::Note,
    .family = "options",
    .title = "A later option object of the node overrides an option",
    .explanation =
        "A node's option objects are copied into one store: \"node_opts\", \"stream_opts\", "
        "\"node_opts_extra\" and \"stream_opts_extra\", in this order. If two of them set a key to "
        "different values, the earlier value is overwritten.",
    .device =
        "If the setters of the store replace values, the later object wins. The class of the node "
        "still comes from the \"node_name\" of \"node_opts\".",
    .fix = "Remove one of the two, unless you intend the later one to override the earlier one.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera", "rate": 25},
    "stream_opts": {"stream_output": "frames", "stream_fmt_out": "image"},
    "node_opts_extra": {"rate": 30}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "frames", "stream_fmt_in": "image"}
  }
}})",
            .fixed = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera", "rate": 30},
    "stream_opts": {"stream_output": "frames", "stream_fmt_out": "image"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "frames", "stream_fmt_in": "image"}
  }
}})",
        },
    .find = optionOverridden,
};

}  // namespace qvgraph
