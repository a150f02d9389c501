#include <algorithm>
#include <set>
#include <string>

#include "check/rules.h"
#include "check/stream_naming.h"
#include "check/visiting.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

// The first member that declares a stream and that the parser does not look up.
const Value& firstUnwired(const Side& side) {
    std::set<std::string_view> lookedUp;
    for (const StreamEnd& end : side.wired()) {
        lookedUp.insert(end.nameKey);
    }
    return **std::find_if(side.declared.begin(), side.declared.end(), [&](const Value* declared) {
        return lookedUp.count(declared->key) == 0;
    });
}

// "1 input", "no input".
std::string numberOf(const Side& side, size_t number) {
    return number == 0 ? std::string("no ") + side.word : counted(number, side.word);
}

std::string hintToCount(const Side& side) {
    const std::string otherwise =
        ", choose a different class, or correct the numbers in the registration of the class";
    switch (side.managers) {
        case 0:
            return (side.declared.size() == 1 ? "remove it" : "remove them") + otherwise;
        case 1:
            return "declare only " + inDoubleQuotes(side.nameKey) + otherwise;
        default:
            return "declare as many as the class has" + otherwise;
    }
}

void streamCount(const Model& model, Reporter* report) {
    forEachSide(model, [report](const Node& node, const Side& side) {
        if (namingOf(node, side) != Naming::TooMany) {
            return;
        }
        const size_t declared = side.declared.size();
        const Value& unwired = firstUnwired(side);
        const bool aborts = std::ranges::any_of(side.wired(), isNameless);
        const std::string effect =
            aborts ? "the device aborts" : "the device does not wire " + quoted(unwired.key);
        report
            ->atKey(unwired,
                    classOf(node) + " has " + numberOf(side, side.managers) + ", but " +
                        std::to_string(declared) + (declared == 1 ? " is" : " are") +
                        " declared: " + effect)
            .hint = hintToCount(side);
    });
}

}  // namespace

constinit const Rule STREAM_COUNT = {
    .code = "stream-count",
    .severity = Severity::Error,
    .family = "nodes",
    .title = "A node declares more streams than its class has",
    .explanation =
        "Each key of \"stream_opts\" that begins with \"stream_input\" or \"stream_output\" "
        "declares a stream. The registered class of the node has fewer streams.",
    .device =
        "The device does not wire the additional streams. If the class has one stream and only "
        "indexed keys are declared, the plain key is missing, and the device aborts.",
    .fix = "Declare as many streams as the class has, or choose a different class.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Stereo"},
    "stream_opts": {
      "stream_output_0": "left", "stream_fmt_out_0": "f",
      "stream_output_1": "right", "stream_fmt_out_1": "f",
      "stream_output_2": "depth", "stream_fmt_out_2": "f"
    }
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {
      "stream_input_0": "left", "stream_fmt_in_0": "f",
      "stream_input_1": "right", "stream_fmt_in_1": "f",
      "stream_input_2": "depth", "stream_fmt_in_2": "f"
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
            .classes = {{"Stereo", 0, 2}},
        },
    .find = streamCount,
};

}  // namespace qvgraph
