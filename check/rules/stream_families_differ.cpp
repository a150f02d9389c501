#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "check/intended_members.h"
#include "check/rules.h"
#include "check/stream_naming.h"
#include "check/visiting.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

// The key of the name that matches a format.
std::string nameKeyFor(const Side& side, const Value& format) {
    return side.nameKey + std::string(suffixOf(format.key, side.formatKey));
}

void reportPair(const Side& side,
                const FormatPair& pair,
                const std::vector<IntendedMember>& intended,
                Reporter* report) {
    const Value& format = *pair.format;
    if (pair.name == nullptr) {
        Finding& finding = report->atKey(format,
                                         quoted(format.key) + " does not belong to any " +
                                             side.word + " stream: the device ignores it");
        const bool isSurplus =
            side.managers == 1 || (side.managers > 1 && format.key == side.formatKey);
        finding.hint = isSurplus ? "remove it"
                                 : "add " + inDoubleQuotes(nameKeyFor(side, format)) +
                                       ": \"...\", or remove the format";
        relate(intended, &finding);
        return;
    }
    Finding& finding =
        report->atKey(format,
                      quoted(format.key) + " becomes the format of " + quoted(pair.name->key) +
                          ": names and formats are paired in the order of their keys");
    finding.hint = "give each name and its format the same suffix";
    finding.related.push_back({"paired with this name", pair.name->keySpan});
    relate(intended, &finding);
}

void streamFamiliesDiffer(const Model& model, Reporter* report) {
    forEachSide(model, [report](const Node& node, const Side& side) {
        const auto pair = differingPair(node, side);
        if (!pair || !hasStreams(node) || namingOf(node, side) != Naming::Right) {
            return;
        }
        const std::vector<IntendedMember> intended = intendedAsNames(node, side);
        if (std::ranges::none_of(intended, &IntendedMember::isReported)) {
            reportPair(side, *pair, intended, report);
        }
    });
}

}  // namespace

constinit const Rule STREAM_FAMILIES_DIFFER = {
    .code = "stream-families-differ",
    .severity = Severity::Warning,
    .family = "streams",
    .title = "Names and formats of a node's streams do not match",
    .explanation =
        "If a node has several inputs or outputs, the k-th name is paired with the k-th format: "
        "names and formats are each ordered by key, and their suffixes are not compared. If the "
        "suffixes differ, a stream may get a format that is intended for another stream. A format "
        "without a name probably belongs to a stream that is missing.",
    .device =
        "Each stream gets the format at its position. A format that is left over is an ordinary "
        "option without a meaning.",
    .fix = "Give each name and its format the same suffix, and remove formats that no stream uses.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Stereo"},
    "stream_opts": {
      "stream_output_0": "a", "stream_fmt_out_0": "f",
      "stream_output_1": "b", "stream_fmt_out_2": "f"
    }
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {
      "stream_input_0": "a", "stream_fmt_in_0": "f",
      "stream_input_1": "b", "stream_fmt_in_1": "f"
    }
  }
}})",
            .fixed = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Stereo"},
    "stream_opts": {
      "stream_output_0": "a", "stream_fmt_out_0": "f",
      "stream_output_1": "b", "stream_fmt_out_1": "f"
    }
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {
      "stream_input_0": "a", "stream_fmt_in_0": "f",
      "stream_input_1": "b", "stream_fmt_in_1": "f"
    }
  }
}})",
        },
    .find = streamFamiliesDiffer,
};

}  // namespace qvgraph
