#include <algorithm>
#include <string>

#include "check/intended_members.h"
#include "check/rules.h"
#include "check/stream_naming.h"
#include "check/visiting.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

std::string hintToName(const Side& side, size_t missing) {
    if (missing > 1) {
        return std::string("name each ") + side.word + " in \"stream_opts\" as " +
               familyOf(side.nameFamily);
    }
    const std::string key = side.managers == 1 ? side.nameKey : freeNameKey(side);
    return "add " + inDoubleQuotes(key) + ": \"...\" and its format to \"stream_opts\"";
}

void reportNameless(const Node& node, const Side& side, Reporter* report) {
    const auto missing =
        static_cast<size_t>(std::count_if(side.wired().begin(), side.wired().end(), isNameless));
    const size_t named = side.managers - missing;
    const Value* options = node.streamOptions();
    Finding& finding =
        report->atKey(options != nullptr ? *options : *node.value,
                      classOf(node) + " has " + counted(side.managers, side.word) + ", but " +
                          (named == 0   ? "none is"
                           : named == 1 ? "only 1 is"
                                        : "only " + std::to_string(named) + " are") +
                          " named: the device aborts");
    finding.hint = hintToName(side, missing);
    const Value* single = options == nullptr ? nullptr : options->member(side.nameKey);
    if (side.managers > 1 && single != nullptr) {
        finding.related.push_back(
            {std::string("applies only to a single ") + side.word, single->keySpan});
    }
    relate(intendedAsNames(node, side), &finding);
}

void streamNameMissing(const Model& model, Reporter* report) {
    forEachSide(model, [report](const Node& node, const Side& side) {
        if (namingOf(node, side) == Naming::TooFew) {
            reportNameless(node, side, report);
        }
    });
}

}  // namespace

constinit const Rule STREAM_NAME_MISSING = {
    .code = "stream-name-missing",
    .severity = Severity::Error,
    .family = "nodes",
    .title = "A node does not name all streams of its class",
    .explanation =
        "The node's class has more inputs or outputs than \"stream_opts\" names. \"stream_input\" "
        "and \"stream_output\" name a single stream; 'stream_input_<k>' and 'stream_output_<k>' "
        "name one of several.",
    .device = "The parser does not find the name in the node's options, and the device aborts.",
    .fix = "Name every stream of the class, or choose a different class.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Join"},
    "stream_opts": {
      "stream_input_0": "a", "stream_fmt_in_0": "f"
    }
  }
}})",
            .fixed = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {
      "stream_output_0": "a", "stream_fmt_out_0": "f",
      "stream_output_1": "b", "stream_fmt_out_1": "f"
    }
  },
  "node_1": {
    "node_opts": {"node_name": "Join"},
    "stream_opts": {
      "stream_input_0": "a", "stream_fmt_in_0": "f",
      "stream_input_1": "b", "stream_fmt_in_1": "f"
    }
  }
}})",
            .classes = {{"Join", 2, 0}},
        },
    .relatedConsequences = {&UNKNOWN_KEY, &STREAM_KEY_IN_EXTRA, &OPTION_NOT_STORED},
    .find = streamNameMissing,
};

}  // namespace qvgraph
