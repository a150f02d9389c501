#include <algorithm>
#include <string>

#include "check/rules.h"
#include "check/stream_naming.h"
#include "check/visiting.h"
#include "check/wording.h"
#include "survey/keys.h"

namespace qvgraph {

namespace {

void reportMixed(const Side& side, Reporter* report) {
    const auto isOutside = [&](const Value* declared) {
        return !hasPrefix(declared->key, side.nameFamily);
    };
    const auto outside = std::find_if(side.declared.begin(), side.declared.end(), isOutside);
    const Value& other = **(outside == side.declared.begin() ? outside + 1 : side.declared.begin());
    const bool aborts = std::any_of(side.wired().begin(), side.wired().end(), isNameless);
    Finding& finding = report->atKey(
        **outside,
        quoted((*outside)->key) + " declares one of " + counted(side.declared.size(), side.word) +
            ", whose names are looked up only under " + familyOf(side.nameFamily) +
            (aborts ? ": the device aborts" : ": the device ignores it"));
    finding.hint = "rename it to " + quoted(freeNameKey(side)) + ", and its format likewise";
    finding.related.push_back(
        {"another " + std::string(side.word) + " is declared here", other.keySpan});
}

void streamKeysMixed(const Model& model, Reporter* report) {
    forEachSide(model, [report](const Node& node, const Side& side) {
        if (namingOf(node, side) == Naming::Mixed) {
            reportMixed(side, report);
        }
    });
}

}  // namespace

constinit const Rule STREAM_KEYS_MIXED = {
    .code = "stream-keys-mixed",
    .severity = Severity::Error,
    .family = "streams",
    .title = "One of a node's several inputs or outputs has no index in its key",
    .explanation =
        "A node with several inputs names each with 'stream_input_<k>'; a node with several "
        "outputs names each with 'stream_output_<k>'. A key outside this family, such as "
        "\"stream_input\", declares a stream but is never looked up.",
    .device = "The device finds one name fewer than there are streams, and aborts.",
    .fix = "Give the key an index that no other key has, and give its format the same index.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Stereo"},
    "stream_opts": {
      "stream_output": "left", "stream_fmt_out": "f",
      "stream_output_1": "right", "stream_fmt_out_1": "f"
    }
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {
      "stream_input_0": "left", "stream_fmt_in_0": "f",
      "stream_input_1": "right", "stream_fmt_in_1": "f"
    }
  }
}})",
            .fixed = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Stereo"},
    "stream_opts": {
      "stream_output_0": "left", "stream_fmt_out_0": "f",
      "stream_output_1": "right", "stream_fmt_out_1": "f"
    }
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {
      "stream_input_0": "left", "stream_fmt_in_0": "f",
      "stream_input_1": "right", "stream_fmt_in_1": "f"
    }
  }
}})",
        },
    .find = streamKeysMixed,
};

}  // namespace qvgraph
