#include "check/rules.h"
#include "check/stream_naming.h"
#include "check/visiting.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

void twoProducers(const Model& model, Reporter* report) {
    forEachStream(model, [report](const Pipe& pipe, const Stream& stream) {
        for (size_t i = 1; i < stream.producers.size(); ++i) {
            const Endpoint& first = stream.producers[0];
            const Endpoint& further = stream.producers[i];
            Finding& finding = report->atValue(
                nameLocation(pipe, further),
                "stream " + quoted(stream.name) + " already has a producer, " +
                    nodeOf(pipe, first) + "; the task graph refuses the second one, and " +
                    leftUninitialised(pipe.nodes[further.node]));
            finding.hint = "give each stream a unique name";
            finding.related.push_back({"first produced here", nameLocation(pipe, first).span});
        }
    });
}

}  // namespace

constinit const Rule TWO_PRODUCERS = {
    .code = "two-producers",
    .severity = Severity::Error,
    .family = "wiring",
    .title = "Two outputs of a pipe produce the same stream",
    .explanation =
        "A stream has one producer. If several outputs have the same name, the producer is the "
        "first one that is set up, in the byte order of the nodes' keys.",
    .device =
        "The task graph refuses the second output, and the rest of that node's set-up is skipped. "
        "Set-up still reports success, so the node is silently left uninitialised.",
    .fix = "Give each stream a unique name.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera#left"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Camera#right"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_2": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
  }
}})",
            .fixed = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera#left"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Camera#right"},
    "stream_opts": {"stream_output": "b", "stream_fmt_out": "f"}
  },
  "node_2": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {
      "stream_input_0": "a", "stream_fmt_in_0": "f",
      "stream_input_1": "b", "stream_fmt_in_1": "f"
    }
  }
}})",
        },
    .find = twoProducers,
};

}  // namespace qvgraph
