#include <map>

#include "check/rules.h"
#include "check/visiting.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

void selfLoop(const Model& model, Reporter* report) {
    forEachStream(model, [report](const Pipe& pipe, const Stream& stream) {
        std::map<size_t, const Endpoint*> producers;  // by node
        for (const Endpoint& producer : stream.producers) {
            producers.emplace(producer.node, &producer);
        }
        for (const Endpoint& consumer : stream.consumers) {
            const auto producer = producers.find(consumer.node);
            if (producer == producers.end()) {
                continue;
            }
            Finding& finding =
                report->atValue(nameLocation(pipe, consumer),
                                nodeOf(pipe, consumer) + " consumes stream " + quoted(stream.name) +
                                    ", which it produces itself: it waits for its own output");
            finding.hint = "consume a stream of another node, unless the class supports feedback";
            finding.related.push_back(
                {"produced here", nameLocation(pipe, *producer->second).span});
        }
    });
}

}  // namespace

constinit const Rule SELF_LOOP = {
    .code = "self-loop",
    .severity = Severity::Warning,
    .family = "wiring",
    .title = "A node consumes a stream that it produces itself",
    .explanation = "An input and an output of the same node have the same name.",
    .device =
        "The node is set up and waits for its own output, unless its class supports feedback.",
    .fix = "Connect the input to a stream of another node.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Filter"},
    "stream_opts": {
      "stream_input": "a", "stream_fmt_in": "f",
      "stream_output": "a", "stream_fmt_out": "f"
    }
  }
}})",
            .fixed = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Filter"},
    "stream_opts": {
      "stream_input": "b", "stream_fmt_in": "f",
      "stream_output": "a", "stream_fmt_out": "f"
    }
  },
  "node_1": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "b", "stream_fmt_out": "f"}
  },
  "node_2": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
  }
}})",
        },
    .find = selfLoop,
};

}  // namespace qvgraph
