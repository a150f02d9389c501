#include <algorithm>
#include <string>
#include <vector>

#include "check/directed_graph.h"
#include "check/rules.h"
#include "check/stream_guesses.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

// "('node_0' and 'node_1')", with the first nodes of a large group.
std::string textOfGroup(const Pipe& pipe, const std::vector<size_t>& group) {
    std::vector<std::string> keys;
    keys.reserve(group.size());
    for (const size_t node : group) {
        keys.push_back(quoted(pipe.nodes[node].value->key));
    }
    return '(' + listOf(keys, 4) + ')';
}

// Whether every stream that may connect nodes is known.
bool knowsEveryStream(const Pipe& pipe) {
    return knowsEvery(&Node::inputs, pipe) && knowsEvery(&Node::outputs, pipe) &&
           std::ranges::none_of(guessesOf(pipe), &StreamGuess::isUncertain);
}

bool hasEveryProducer(const Pipe& pipe) {
    return std::ranges::none_of(pipe.streams,
                                [](const Stream& stream) { return stream.producers.empty(); });
}

// The groups of at least two nodes. REQUIRES: every stream has a producer.
std::vector<std::vector<size_t>> connectedGroups(const Pipe& pipe) {
    Edges edges(pipe.nodes.size());
    for (const Stream& stream : pipe.streams) {
        const size_t first = stream.producers[0].node;
        for (const auto* ends : {&stream.producers, &stream.consumers}) {
            for (const Endpoint& end : *ends) {
                edges[first].push_back(end.node);
            }
        }
    }
    std::vector<std::vector<size_t>> groups = groupsIn(edges);
    std::erase_if(groups, [](const std::vector<size_t>& group) { return group.size() == 1; });
    return groups;
}

void reportGroups(const Pipe& pipe,
                  const std::vector<std::vector<size_t>>& groups,
                  Reporter* report) {
    std::vector<std::string> texts;
    texts.reserve(groups.size());
    for (const std::vector<size_t>& group : groups) {
        texts.push_back(textOfGroup(pipe, group));
    }
    report
        ->atKey(*pipe.value,
                quoted(pipe.value->key) +
                    " has groups of nodes that no stream connects: " + listOf(texts, 4))
        .hint = "connect them if they belong together";
}

void disconnected(const Model& model, Reporter* report) {
    for (const Pipe& pipe : model.pipes()) {
        if (!hasEveryProducer(pipe)) {
            continue;
        }
        const auto groups = connectedGroups(pipe);
        if (groups.size() > 1 && knowsEveryStream(pipe)) {
            reportGroups(pipe, groups, report);
        }
    }
}

}  // namespace

constinit const Rule DISCONNECTED = {
    .code = "disconnected",
    .severity = Severity::Note,
    .family = "wiring",
    .title = "A pipe has groups of nodes that no stream connects",
    .explanation =
        "Every consumed stream of the pipe has a producer, but the streams, followed in either "
        "direction, do not connect all nodes. A single node that no stream connects to another is "
        "not reported here.",
    .device = "The device sets up all groups in one task graph, where they run independently.",
    .fix = "Connect the groups, give each its own pipe, or leave them as they are.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
  },
  "node_2": {
    "node_opts": {"node_name": "Microphone"},
    "stream_opts": {"stream_output": "b", "stream_fmt_out": "f"}
  },
  "node_3": {
    "node_opts": {"node_name": "Speaker"},
    "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}
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
},
"pipe_1": {
  "node_2": {
    "node_opts": {"node_name": "Microphone"},
    "stream_opts": {"stream_output": "b", "stream_fmt_out": "f"}
  },
  "node_3": {
    "node_opts": {"node_name": "Speaker"},
    "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}
  }
}})",
        },
    .find = disconnected,
};

}  // namespace qvgraph
