#include "check/rules.h"
#include "check/stream_modes.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

void streamModeUnknown(const Model& model, Reporter* report) {
    forEachMode(model, [report](const Option& option) {
        const Value& mode = *option.member;
        const auto string = modeIn(option);
        if (string && *string != LATEST_ONLY && !isIntendedAsLatestOnly(*string)) {
            report
                ->atValue(mode,
                          "mode " + quoted(*string) + " is unknown: the inputs keep every item")
                .hint = "write \"remain_newest\", or remove it unless the node's class reads it";
        }
    });
}

}  // namespace

constinit const Rule STREAM_MODE_UNKNOWN = {
    .code = "stream-mode-unknown",
    .severity = Severity::Note,
    .family = "streams",
    .title = "The mode of a node's inputs has no meaning",
    .explanation =
        "\"stream_mode_in\" has one value with a meaning, \"remain_newest\". Any other string is "
        "an ordinary option, which the node's class may read.",
    .device =
        "The inputs keep every item, as they do without a mode. The string is stored in the "
        "node's options.",
    .fix = "Write \"remain_newest\", or remove the mode.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {
      "stream_input": "a", "stream_fmt_in": "f",
      "stream_mode_in": "drop_oldest"
    }
  }
}})",
            .fixed = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {
      "stream_input": "a", "stream_fmt_in": "f",
      "stream_mode_in": "remain_newest"
    }
  }
}})",
        },
    .find = streamModeUnknown,
};

}  // namespace qvgraph
