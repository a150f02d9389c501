#include <string>

#include "check/rules.h"
#include "check/visiting.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

// How the class fails, with its own message if it has one.
std::string failureOf(const Node& node) {
    switch (node.outcome) {
        case Outcome::WouldAbort:
            return " aborts the device: " + node.message;
        case Outcome::WouldThrow:
            return " throws during node set-up: " + node.message;
        default:
            return " creates no node: node set-up fails";
    }
}

void nodeClassFailed(const Model& model, Reporter* report) {
    forEachNode(model, [report](const Node& node) {
        if (node.canonical && node.failedByClass) {
            const Value& name = *node.nodeOptions()->member("node_name");
            report->atValue(name, classOf(node) + failureOf(node)).hint =
                "check which options and streams the class requires";
        }
    });
}

}  // namespace

constinit const Rule NODE_CLASS_FAILED = {
    .code = "node-class-failed",
    .severity = Severity::Error,
    .family = "nodes",
    .title = "A node's class fails during node set-up",
    .explanation =
        "The class is registered, but it creates no node, throws, or fails an assertion, although "
        "the node's streams have all of their names and formats.",
    .device =
        "The same as on the host: no node is created, an exception propagates to the caller of "
        "node set-up, or the device aborts.",
    .fix =
        "Check which options and streams the class requires. The text of an exception or an "
        "assertion comes from the class.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Broken"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
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
            .classes = {{"Broken", 0, 1, false}},
        },
    .find = nodeClassFailed,
};

}  // namespace qvgraph
