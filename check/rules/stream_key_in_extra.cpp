#include <string>

#include "check/rules.h"
#include "check/stream_naming.h"
#include "check/visiting.h"
#include "check/wording.h"
#include "survey/keys.h"

namespace qvgraph {

namespace {

// Whether a key has a meaning only in "stream_opts".
bool isDeclaringKey(std::string_view key) {
    return isStreamKey(key) || hasPrefix(key, "stream_fmt_in_") ||
           hasPrefix(key, "stream_fmt_out_");
}

void streamKeyInExtra(const Model& model, Reporter* report) {
    forEachNodeOptions(model, [report](const Node& node, const OptionObject& object) {
        const Value* streamOptions = node.streamOptions();
        if (object.value == streamOptions) {
            return;
        }
        for (const Value* member : object.value->children) {
            const bool isDeclared =
                streamOptions != nullptr && streamOptions->member(member->key) != nullptr;
            if (isDeclaringKey(member->key) && !isDeclared) {
                report
                    ->atKey(*member,
                            quoted(member->key) + " in " + inDoubleQuotes(object.value->key) +
                                " is an ordinary option: streams are declared only in "
                                "\"stream_opts\"")
                    .hint = "move it into \"stream_opts\"";
            }
        }
    });
}

}  // namespace

constinit const Rule STREAM_KEY_IN_EXTRA = {
    .code = "stream-key-in-extra",
    .severity = Severity::Warning,
    .family = "streams",
    .title = "A key that declares a stream is outside \"stream_opts\"",
    .explanation =
        "Streams are counted only in \"stream_opts\", and the keys of several streams are looked "
        "up only there. In any other object, such a key is an ordinary option, unless "
        "\"stream_opts\" has the same key.",
    .device =
        "The stream is not declared. A class that takes its number of streams from the "
        "declaration has one fewer.",
    .fix = "Move the key into \"stream_opts\".",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_fmt_in": "f"},
    "stream_opts_extra": {"stream_input": "a"}
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
            .classes = {{"Display", 1, 0}},
        },
    .find = streamKeyInExtra,
};

}  // namespace qvgraph
