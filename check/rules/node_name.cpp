#include <algorithm>
#include <string>

#include "check/intended_members.h"
#include "check/rules.h"
#include "check/typed_string.h"
#include "check/visiting.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

void reportNoNodeName(const Node& node, Reporter* report) {
    const Value* options = node.value->member("node_opts");
    if (options != nullptr && !options->isObject()) {
        return;  // section-not-object reports it
    }
    const bool hasOptions = options != nullptr;
    const std::string missing = hasOptions ? R"("node_name" in "node_opts")" : R"("node_opts")";
    Finding& finding =
        report->atKey(hasOptions ? *options : *node.value,
                      quoted(node.value->key) + " has no " + missing + ": no node is created");
    finding.hint = hasOptions ? R"(add "node_name": "..." with the node's class)"
                              : R"(add "node_opts": {"node_name": "..."} with the node's class)";
    relate(intendedAsNodeName(node), &finding);
}

// What is wrong with the value of "node_name"; "" if nothing is.
std::string faultOfName(const Option& option) {
    const Value& name = *option.member;
    if (!name.isString()) {
        return std::string("is ") + toText(name.kind) + ", not a string: no node is created";
    }
    if (untilNul(name.text).empty()) {
        return "is empty: no node is created";
    }
    if (const auto typed = typedStringIn(option)) {
        return "is " + quoted(typed->text) +
               ", which starts with a type word: it is stored as a number";
    }
    return "";
}

void nodeName(const Model& model, Reporter* report) {
    forEachNode(model, [report](const Node& node) {
        const OptionObject& options = node.objects[0];
        const auto name = std::ranges::find_if(options.options, [](const Option& option) {
            return option.member->key == "node_name";
        });
        if (name == options.options.end()) {
            reportNoNodeName(node, report);
            return;
        }
        const std::string fault = faultOfName(*name);
        if (!fault.empty()) {
            report->atValue(*name->member, "\"node_name\" " + fault).hint =
                "write the name of the node's class as a string";
        }
    });
}

}  // namespace

constinit const Rule NODE_NAME = {
    .code = "node-name",
    .severity = Severity::Error,
    .family = "nodes",
    .title = "A node has no name that is a plain string",
    .explanation =
        "\"node_name\" in \"node_opts\" names the class of the node. It has to be a string that is "
        "not empty and that the parser does not convert to a number.",
    .device =
        "The node proxy receives an empty name and creates no node, so node set-up fails. If the "
        "parser converts the name, the proxy receives the string, but the node's option store "
        "holds a number.",
    .fix =
        "Write the name of the node's class as a string. If several nodes have the same class, add "
        "a '#' and a label.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"nodename": "Camera"},
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
        },
    .consequences = {&NODE_CLASS,
                     &OPTION_NOT_STORED,
                     &TYPED_VALUE,
                     &NUMBER_LOST,
                     &DOUBLE_NARROWED,
                     &NUL_IN_OPTION},
    .relatedConsequences = {&UNKNOWN_KEY},
    .find = nodeName,
};

}  // namespace qvgraph
