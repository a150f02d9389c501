#include <algorithm>
#include <string>
#include <vector>

#include "check/directed_graph.h"
#include "check/rules.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

// A stream from one node to another.
struct Hop {
    size_t to = 0;
    const Endpoint* consumer = nullptr;
    const Stream* stream = nullptr;
};

// For each node, the streams that other nodes consume from it.
std::vector<std::vector<Hop>> hopsOf(const Pipe& pipe) {
    std::vector<std::vector<Hop>> hops(pipe.nodes.size());
    for (const Stream& stream : pipe.streams) {
        if (stream.producers.empty()) {
            continue;
        }
        const size_t from = stream.producers[0].node;
        for (const Endpoint& consumer : stream.consumers) {
            if (consumer.node != from) {
                hops[from].push_back({consumer.node, &consumer, &stream});
            }
        }
    }
    return hops;
}

Edges edgesOf(const std::vector<std::vector<Hop>>& hops) {
    Edges edges(hops.size());
    for (size_t i = 0; i < hops.size(); ++i) {
        for (const Hop& hop : hops[i]) {
            edges[i].push_back(hop.to);
        }
    }
    return edges;
}

// REQUIRES: there is such a hop.
const Hop& hopBetween(const std::vector<std::vector<Hop>>& hops, size_t from, size_t to) {
    return *std::ranges::find(hops[from], to, &Hop::to);
}

// "'node_0' -> 'node_1' -> 'node_0'", with "..." in place of all but the first
// nodes and the last one of a long path.
std::string textOf(const Pipe& pipe, const std::vector<size_t>& path) {
    std::string text;
    for (size_t i = 0; i < path.size(); ++i) {
        const bool isShown = i < MAX_RELATED || i + 1 == path.size();
        if (isShown) {
            text += (i == 0 ? "" : " -> ") + quoted(pipe.nodes[path[i]].value->key);
        } else if (i == MAX_RELATED) {
            text += " -> ...";
        }
    }
    return text;
}

// `path` begins and ends with the same node.
void reportCycle(const Pipe& pipe,
                 const std::vector<std::vector<Hop>>& hops,
                 const std::vector<size_t>& path,
                 Reporter* report) {
    const Hop& last = hopBetween(hops, path[path.size() - 2], path.back());
    Finding& finding = report->atValue(nameLocation(pipe, *last.consumer),
                                       quoted(pipe.value->key) + " has a cycle of " +
                                           counted(path.size() - 1, "node") +
                                           ", which wait for each other: " + textOf(pipe, path));
    finding.hint = "break the cycle, unless one of the classes supports feedback";
    for (size_t i = 0; i + 2 < path.size() && i < MAX_RELATED; ++i) {
        const Hop& hop = hopBetween(hops, path[i], path[i + 1]);
        finding.related.push_back(
            {nodeOf(pipe, *hop.consumer) + " consumes stream " + quoted(hop.stream->name),
             nameLocation(pipe, *hop.consumer).span});
    }
}

void cycle(const Model& model, Reporter* report) {
    for (const Pipe& pipe : model.pipes()) {
        const auto hops = hopsOf(pipe);
        for (const std::vector<size_t>& path : cyclesIn(edgesOf(hops))) {
            reportCycle(pipe, hops, path, report);
        }
    }
}

}  // namespace

constinit const Rule CYCLE = {
    .code = "cycle",
    .severity = Severity::Warning,
    .family = "wiring",
    .title = "The streams of a pipe form a cycle",
    .explanation =
        "Each node of a cycle consumes a stream of the node before it, and the first node "
        "consumes a stream of the last one. For each group of nodes that depend on each other, "
        "one shortest cycle is reported.",
    .device =
        "The nodes are set up and wait for each other, unless one of their classes supports "
        "feedback.",
    .fix = "Break the cycle.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Filter#0"},
    "stream_opts": {
      "stream_input": "b", "stream_fmt_in": "f",
      "stream_output": "a", "stream_fmt_out": "f"
    }
  },
  "node_1": {
    "node_opts": {"node_name": "Filter#1"},
    "stream_opts": {
      "stream_input": "a", "stream_fmt_in": "f",
      "stream_output": "b", "stream_fmt_out": "f"
    }
  }
}})",
            .fixed = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Filter"},
    "stream_opts": {
      "stream_input": "a", "stream_fmt_in": "f",
      "stream_output": "b", "stream_fmt_out": "f"
    }
  },
  "node_2": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}
  }
}})",
        },
    .find = cycle,
};

}  // namespace qvgraph
