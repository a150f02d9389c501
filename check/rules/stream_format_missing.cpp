#include <set>
#include <string>
#include <vector>

#include "check/intended_members.h"
#include "check/rules.h"
#include "check/stream_naming.h"
#include "check/visiting.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

// The key under which the format of an end is expected.
std::string formatKeyFor(const Side& side, const StreamEnd& end) {
    if (side.managers == 1) {
        return side.formatKey;
    }
    return side.formatFamily + std::string(suffixOf(end.nameKey, side.nameFamily));
}

bool lacksFormat(const StreamEnd& end) {
    return end.name != nullptr && !end.name->empty() && end.format == nullptr &&
           end.formatOption == nullptr;
}

// The ends to report. Several names and formats are paired in the order of their
// keys, so a format that is missing in the middle shifts those after it. If the
// suffixes explain what is missing, the ends without a format of the same suffix
// are reported.
std::vector<const StreamEnd*> endsWithoutFormat(const Side& side) {
    std::vector<const StreamEnd*> lacking;
    std::vector<const StreamEnd*> unmatched;
    std::set<std::string, std::less<>> formats;
    for (const Value* member : side.formatMembers) {
        formats.emplace(member->key);
    }
    for (const StreamEnd& end : side.wired()) {
        if (lacksFormat(end)) {
            lacking.push_back(&end);
        }
        if (end.name != nullptr && !end.name->empty() &&
            formats.count(formatKeyFor(side, end)) == 0) {
            unmatched.push_back(&end);
        }
    }
    return unmatched.size() == lacking.size() ? unmatched : lacking;
}

void reportNoFormat(const Node& node,
                    const Side& side,
                    const StreamEnd& end,
                    const std::vector<IntendedMember>& intended,
                    Reporter* report) {
    const std::string key = formatKeyFor(side, end);
    Finding& finding = report->atKey(nameLocation(node, end),
                                     side.word + (" stream " + quoted(*end.name)) +
                                         " has no format: " + nameOfKey(side, key) +
                                         " is missing, and node set-up throws");
    finding.hint = "add " + inDoubleQuotes(key) + ": \"...\" to \"stream_opts\"";
    relate(intended, &finding);
}

// A format that was probably intended for the only end without one: a spare
// format of the other side, or one under a key for a different number of streams.
std::vector<IntendedMember> formatOfOtherKind(const Node& node,
                                              const Side& side,
                                              const std::string& key) {
    const Side& other = &side == &node.inputs ? node.outputs : node.inputs;
    std::string why = "no " + std::string(other.word) + " uses this format";
    const Value* format =
        hasSpareFormat(node, other) ? differingPair(node, other)->format : nullptr;
    if (side.managers == 1 && side.formatMembers.size() == 1) {
        why = "only nodes with several " + std::string(side.word) + "s use such a key";
        format = side.formatMembers[0];
    } else if (side.managers > 1 && node.streamOptions()->member(side.formatKey) != nullptr) {
        why = "only nodes with one " + std::string(side.word) + " use this key";
        format = node.streamOptions()->member(side.formatKey);
    }
    if (format == nullptr) {
        return {};
    }
    return {{{why, format->keySpan},
             "rename",
             quoted(format->key),
             "to " + nameOfKey(side, key),
             true}};
}

void reportNoFormats(const Node& node, const Side& side, Reporter* report) {
    const std::vector<const StreamEnd*> ends = endsWithoutFormat(side);
    if (ends.empty()) {
        return;
    }
    auto intended = intendedAsFormats(node, side);
    for (const StreamEnd* end : ends) {
        const std::string key = formatKeyFor(side, *end);
        std::vector<IntendedMember>& members = intended[key];
        if (members.empty() && ends.size() == 1) {
            members = formatOfOtherKind(node, side, key);
        }
        reportNoFormat(node, side, *end, members, report);
    }
}

void streamFormatMissing(const Model& model, Reporter* report) {
    forEachUnreadySide(model, [report](const Node& node, const Side& side) {
        reportNoFormats(node, side, report);
    });
}

}  // namespace

constinit const Rule STREAM_FORMAT_MISSING = {
    .code = "stream-format-missing",
    .severity = Severity::Error,
    .family = "streams",
    .title = "A stream of a node has no format",
    .explanation =
        "Each stream of a node needs a format: \"stream_fmt_in\" for \"stream_input\", "
        "'stream_fmt_in_<k>' for 'stream_input_<k>', and likewise \"stream_fmt_out\" for outputs. "
        "The keys without an index may also be in an extra option object.",
    .device = "Node set-up throws and leaves the node partly wired.",
    .fix = "Add the format.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a"}
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
    .relatedConsequences = {&UNKNOWN_KEY, &STREAM_KEY_IN_EXTRA, &STREAM_FAMILIES_DIFFER},
    .find = streamFormatMissing,
};

}  // namespace qvgraph
