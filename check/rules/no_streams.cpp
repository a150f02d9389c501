#include <vector>

#include "check/intended_members.h"
#include "check/rules.h"
#include "check/stream_naming.h"
#include "check/visiting.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

void noStreams(const Model& model, Reporter* report) {
    forEachNode(model, [report](const Node& node) {
        if (hasStreams(node)) {
            return;
        }
        const Value* options = node.value->member("stream_opts");
        Finding& finding = report->atKey(
            options != nullptr ? *options : *node.value,
            quoted(node.value->key) + " has neither inputs nor outputs: node set-up fails");
        finding.hint = R"(add "stream_input" or "stream_output" to "stream_opts")";
        std::vector<IntendedMember> intended = intendedAsNames(node, node.inputs);
        const std::vector<IntendedMember> outputs = intendedAsNames(node, node.outputs);
        intended.insert(intended.end(), outputs.begin(), outputs.end());
        relate(intended, &finding);
    });
}

}  // namespace

constinit const Rule NO_STREAMS = {
    .code = "no-streams",
    .severity = Severity::Error,
    .family = "nodes",
    .title = "A node has neither inputs nor outputs",
    .explanation =
        "Each key of \"stream_opts\" that begins with \"stream_input\" or \"stream_output\" "
        "declares a stream. The node has no such key, and its class creates no streams itself.",
    .device = "The node is created, but node set-up fails, and the node is never initialised.",
    .fix = "Name the node's streams in \"stream_opts\", or remove the node.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"fps": 25}
  }
}})",
            .fixed = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"fps": 25, "stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
  }
}})",
        },
    .relatedConsequences = {&UNKNOWN_KEY, &STREAM_KEY_IN_EXTRA, &OPTION_NOT_STORED},
    .find = noStreams,
};

}  // namespace qvgraph
