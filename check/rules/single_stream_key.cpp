#include "check/intended_members.h"
#include "check/rules.h"
#include "check/stream_naming.h"
#include "check/visiting.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

void reportSingle(const Node& node, const Side& side, Reporter* report) {
    const Value& only = *side.declared[0];
    Finding& finding = report->atKey(only,
                                     quoted(only.key) + " declares the node's only " + side.word +
                                         ", but its name is looked up under " +
                                         inDoubleQuotes(side.nameKey) + ": the device aborts");
    finding.hint = "rename it to " + inDoubleQuotes(side.nameKey);
    if (side.wired()[0].formatOption == nullptr && !side.formatMembers.empty()) {
        const Value& format = *side.formatMembers[0];
        finding.hint += ", and " + quoted(format.key) + " to " + inDoubleQuotes(side.formatKey);
    }
    // Other keys may have been intended to declare more streams.
    relate(intendedAsNames(node, side), &finding);
}

void singleStreamKey(const Model& model, Reporter* report) {
    forEachSide(model, [report](const Node& node, const Side& side) {
        if (namingOf(node, side) == Naming::SingleIndexed) {
            reportSingle(node, side, report);
        }
    });
}

}  // namespace

constinit const Rule SINGLE_STREAM_KEY = {
    .code = "single-stream-key",
    .severity = Severity::Error,
    .family = "streams",
    .title = "The key of a node's only input or output has an index",
    .explanation =
        "A node with one input names it with \"stream_input\"; a node with several inputs names "
        "each with 'stream_input_<k>'. The same applies to outputs. Here the node has only one, "
        "but its key has a suffix.",
    .device = "The device looks up the key without a suffix, does not find it, and aborts.",
    .fix = "Remove the suffix from the key, and from the key of its format.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output_0": "a", "stream_fmt_out_0": "f"}
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
    .relatedConsequences = {&UNKNOWN_KEY, &STREAM_KEY_IN_EXTRA},
    .find = singleStreamKey,
};

}  // namespace qvgraph
