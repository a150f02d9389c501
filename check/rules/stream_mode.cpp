#include <optional>
#include <string>

#include "check/rules.h"
#include "check/similar.h"
#include "check/stream_modes.h"
#include "check/typed_string.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

void streamMode(const Model& model, Reporter* report) {
    forEachMode(model, [report](const Option& option) {
        const Value& mode = *option.member;
        const auto string = modeIn(option);
        if (!string) {
            report
                ->atValue(mode,
                          "\"stream_mode_in\" is not stored as a string: the device ignores it")
                .hint = "write \"remain_newest\", or remove it";
        } else if (*string != LATEST_ONLY && isIntendedAsLatestOnly(*string)) {
            report
                ->atValue(
                    mode,
                    "mode " + quoted(*string) + " is not \"remain_newest\": the device ignores it")
                .hint = "write \"remain_newest\"";
        }
    });
}

}  // namespace

constinit const Rule STREAM_MODE = {
    .code = "stream-mode",
    .severity = Severity::Warning,
    .family = "streams",
    .title = "The mode of a node's inputs is not exactly \"remain_newest\"",
    .explanation =
        "\"stream_mode_in\" has one value with a meaning, \"remain_newest\", which must be "
        "spelled exactly like this. A string that resembles it, or that contains 'newest' or "
        "'latest', was probably intended as this value. A value that is not stored as a string is "
        "not a mode.",
    .device = "The inputs keep every item instead of the latest only.",
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
      "stream_mode_in": "Remain_Newest"
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
    .consequences =
        {&OPTION_NOT_STORED, &TYPED_VALUE, &NUMBER_LOST, &DOUBLE_NARROWED, &NUL_IN_OPTION},
    .find = streamMode,
};

}  // namespace qvgraph
