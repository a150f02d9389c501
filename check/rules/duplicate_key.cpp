#include "check/rules.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

// Whether a later member overrides an object around a value.
bool isInOverridden(const Value& value) {
    const Value* above = value.parent;
    while (above != nullptr && above->overriddenBy == nullptr) {
        above = above->parent;
    }
    return above != nullptr;
}

void duplicateKey(const Model& model, Reporter* report) {
    for (const Value& overridden : model.source().values()) {
        if (overridden.overriddenBy == nullptr || isInOverridden(overridden)) {
            continue;
        }
        const Value& later = *overridden.overriddenBy;
        const bool wins = later.overriddenBy == nullptr;
        Finding& finding =
            report->atKey(later,
                          quoted(later.key) + " is already in this object: the device discards " +
                              (wins ? "the earlier value and uses this one"
                                    : "both values, because a later one wins"));
        finding.related.push_back({"the earlier value", overridden.keySpan});
        finding.hint = "remove or rename one of them";
    }
}

}  // namespace

constinit const Rule DUPLICATE_KEY = {
    .code = "duplicate-key",
    .severity = Severity::Warning,
    .family = "text",
    .title = "An object has several members with the same key",
    .explanation =
        "If an object has several members with the same key, the last one in the text wins. The "
        "others are discarded, with everything in them.",
    .device = "The device sees only the last one, and nothing is logged.",
    .fix = "Remove the other members, or give each member its own key.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "default_mode_link": "sync",
  "default_mode_link": "async"
}})",
            .fixed = R"({"pipe_0": {
  "default_mode_link": "async"
}})",
        },
    .find = duplicateKey,
};

}  // namespace qvgraph
