#include "check/rules.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

void linkModeNotText(const Model& model, Reporter* report) {
    for (const Pipe& pipe : model.pipes()) {
        const Value* mode = pipe.value->member("default_mode_link");
        if (mode != nullptr && !mode->isString()) {
            report
                ->atWrongType(*mode,
                              "\"default_mode_link\"",
                              "a string",
                              "the device uses " + quoted(pipe.linkMode))
                .hint = "write the mode as a string, or remove the member";
        }
    }
}

}  // namespace

constinit const Rule LINK_MODE_NOT_TEXT = {
    .code = "link-mode-not-text",
    .severity = Severity::Warning,
    .family = "keys",
    .title = "The default link mode of a pipe is not a string",
    .explanation =
        "\"default_mode_link\" is a string. If it is missing, empty or of any other type, the "
        "mode is 'none'.",
    .device = "The default link mode is 'none'.",
    .fix = "Write the mode as a string, or remove the member.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "default_mode_link": true
}})",
            .fixed = R"({"pipe_0": {
  "default_mode_link": "sync"
}})",
        },
    .find = linkModeNotText,
};

}  // namespace qvgraph
