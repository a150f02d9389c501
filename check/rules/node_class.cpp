#include <string>

#include "check/class_hints.h"
#include "check/rules.h"
#include "check/visiting.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

// Whether the proxy created no node because it does not know the class.
bool lacksClass(const Node& node) {
    const bool isNamed = !untilNul(node.name).empty();
    return node.canonical && isNamed && !node.created && !node.failedByClass;
}

void nodeClass(const Model& model, Reporter* report) {
    forEachNode(model, [&](const Node& node) {
        if (!lacksClass(node)) {
            return;
        }
        const Value& name = *node.nodeOptions()->member("node_name");
        if (node.className.empty()) {
            report
                ->atValue(name,
                          quoted(name.text) + " has no class before the '#': no node is created")
                .hint = "write the class before the '#' and the label after it";
            return;
        }
        Finding& finding =
            report->atValue(name, classOf(node) + " is not registered: no node is created");
        const std::string nearest = nearestClass(model, node);
        finding.hint = nearest.empty() ? "use --plugin to load the library that registers it"
                                       : hintToClass(nearest);
    });
}

}  // namespace

constinit const Rule NODE_CLASS = {
    .code = "node-class",
    .severity = Severity::Error,
    .family = "nodes",
    .title = "A node's class is not registered",
    .explanation =
        "The class of a node is its name up to a '#'. It must not be empty. It has to be "
        "registered, unless a stub replaces unknown classes.",
    .device = "The node proxy creates no node, and node set-up fails.",
    .fix = "Use --plugin to load the library that registers the class, or correct the name.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camara"},
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
            .classes = {{"Camera", 0, 1}, {"Display", 1, 0}},
            .stub = false,
        },
    .find = nodeClass,
};

}  // namespace qvgraph
