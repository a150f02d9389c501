#include <string>

#include "check/pipe_indexes.h"
#include "check/rules.h"
#include "check/visiting.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

void checkSection(const Value* section,
                  const std::string& name,
                  const char* outcome,
                  Reporter* report) {
    if (section != nullptr && !section->isObject()) {
        report->atWrongType(*section, name, "an object", outcome).hint = "write an object, {...}";
    }
}

void checkNode(const Value& node, Reporter* report) {
    if (isMisplaced(node)) {
        return;
    }
    checkSection(&node, quoted(node.key), "no node is created", report);
    checkSection(node.member("node_opts"),
                 "\"node_opts\"",
                 "the node has no name, and no node is created",
                 report);
    checkSection(node.member("stream_opts"), "\"stream_opts\"", "the node has no streams", report);
}

void sectionNotObject(const Model& model, Reporter* report) {
    for (const auto& [index, pipe] : addressablePipes(model)) {
        checkSection(pipe, quoted(pipe->key), "the device reads it as an empty pipe", report);
    }
    for (const Pipe& pipe : model.pipes()) {
        for (const Node& node : pipe.nodes) {
            checkNode(*node.value, report);
        }
    }
}

}  // namespace

constinit const Rule SECTION_NOT_OBJECT = {
    .code = "section-not-object",
    .severity = Severity::Error,
    .family = "pipes",
    .title = "A pipe, a node or one of its main sections is not an object",
    .explanation =
        "Pipes, nodes, \"node_opts\" and \"stream_opts\" are objects. A value of any other type "
        "reads as if it were missing.",
    .device = "The pipe is empty, the node is not created, or it has no streams.",
    .fix = "Write an object.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "node_0": ["Camera"]
}})",
            .fixed = R"({"pipe_0": {
  "node_0": {"node_opts": {"node_name": "Camera"},
             "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
  "node_1": {"node_opts": {"node_name": "Display"},
             "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}}
}})",
        },
    .scope = Scope::Unread,
    .consequences = {&NODE_NAME,
                     &NO_STREAMS,
                     &STREAM_KEYS_MIXED,
                     &SINGLE_STREAM_KEY,
                     &STREAM_NAME_MISSING,
                     &STREAM_FORMAT_MISSING,
                     &STREAM_COUNT,
                     &DISCONNECTED},
    .find = sectionNotObject,
};

}  // namespace qvgraph
