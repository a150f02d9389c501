#include <string>

#include "check/class_hints.h"
#include "check/rules.h"
#include "check/visiting.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

void nodeClassStub(const Model& model, Reporter* report) {
    forEachNode(model, [&](const Node& node) {
        if (!node.canonical || !node.created || node.registered) {
            return;
        }
        const std::string nearest = nearestClass(model, node);
        if (!nearest.empty()) {
            const Value& name = *node.nodeOptions()->member("node_name");
            report
                ->atValue(name,
                          classOf(node) + " is not registered, but " + quoted(nearest) +
                              " is: a stub replaces it")
                .hint = hintToClass(nearest);
        }
    });
}

}  // namespace

constinit const Rule NODE_CLASS_STUB = {
    .code = "node-class-stub",
    .severity = Severity::Warning,
    .family = "nodes",
    .title = "A stub replaces a class with a name similar to a registered one",
    .explanation =
        "The class of the node is not registered, so a stub replaces it on the host. Its name is "
        "similar to that of a registered class and may be misspelt.",
    .device = "If the device has no class of that name, no node is created, and node set-up fails.",
    .fix = "Correct the name, or use --plugin to load the library that registers the class.",
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
            .classes = {{"Camera", 0, 1}},
        },
    .find = nodeClassStub,
};

}  // namespace qvgraph
