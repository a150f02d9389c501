#include <string>

#include "check/rules.h"
#include "check/stream_naming.h"
#include "check/visiting.h"

namespace qvgraph {

namespace {

void streamNameEmpty(const Model& model, Reporter* report) {
    forEachUnreadySide(model, [report](const Node& node, const Side& side) {
        for (const StreamEnd& end : side.wired()) {
            if (end.name != nullptr && end.name->empty()) {
                report
                    ->atValue(nameLocation(node, end),
                              "the name of the " + std::string(side.word) +
                                  " stream is empty; the task graph refuses it, and " +
                                  leftUninitialised(node))
                    .hint = "name the stream";
            }
        }
    });
}

}  // namespace

constinit const Rule STREAM_NAME_EMPTY = {
    .code = "stream-name-empty",
    .severity = Severity::Error,
    .family = "streams",
    .title = "The name of a stream is empty",
    .explanation = "The task graph does not accept a stream without a name.",
    .device =
        "The task graph refuses the stream, and the rest of the node's set-up is skipped. Set-up "
        "still reports success, so the node is silently left uninitialised.",
    .fix = "Name the stream.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "", "stream_fmt_out": "f"}
  }
}})",
            .fixed = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
  }
}})",
        },
    .consequences = {&NUL_IN_OPTION},
    .find = streamNameEmpty,
};

}  // namespace qvgraph
