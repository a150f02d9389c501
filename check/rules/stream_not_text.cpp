#include <string>
#include <variant>

#include "check/rules.h"
#include "check/typed_string.h"
#include "check/visiting.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

// Whether the store of the host framework would hold a string for the option.
bool isStoredAsString(const Option& option) {
    return option.stored && std::holds_alternative<std::string>(*option.stored);
}

// Why a store holds no string for the option.
std::string whyNotString(const Node& node, const Option& option) {
    const Value& value = *option.member;
    if (!value.isString()) {
        return std::string("is ") + toText(value.kind) + ", not a string";
    }
    if (isTooLong(option)) {
        return "has " + std::to_string(untilNul(value.text).size()) +
               " bytes, but the maximum is 127";
    }
    if (const auto typed = typedStringIn(option)) {
        return "is " + quoted(typed->text) + ", which is stored as a number because '" +
               typed->word + "' is a type word";
    }
    return "is not found in the options of " + classOf(node);
}

// `role` is "name of the input stream", for example.
void reportNotString(const Node& node,
                     const Option& option,
                     const std::string& role,
                     const char* consequence,
                     Reporter* report) {
    report
        ->atValue(*option.member,
                  "the " + role + ' ' + whyNotString(node, option) + ": " + consequence)
        .hint = isStoredAsString(option) ? "check which options the class keeps in its store"
                                         : "write a plain string of at most 127 bytes";
}

// Whether the format is to blame. If the store lacks a format that it should
// hold, and the name as well, the name is reported.
bool lacksFormat(const StreamEnd& end) {
    return end.format == nullptr && end.formatOption != nullptr &&
           (end.name != nullptr || !isStoredAsString(*end.formatOption));
}

void streamNotText(const Model& model, Reporter* report) {
    forEachUnreadySide(model, [report](const Node& node, const Side& side) {
        const std::string stream = std::string(side.word) + " stream";
        for (const StreamEnd& end : side.wired()) {
            if (end.name == nullptr && end.nameOption != nullptr) {
                reportNotString(
                    node, *end.nameOption, "name of the " + stream, "the device aborts", report);
            }
            if (lacksFormat(end)) {
                reportNotString(node,
                                *end.formatOption,
                                "format of the " + stream,
                                "node set-up throws",
                                report);
            }
        }
    });
}

}  // namespace

constinit const Rule STREAM_NOT_TEXT = {
    .code = "stream-not-text",
    .severity = Severity::Error,
    .family = "streams",
    .title = "The name or format of a stream is not stored as a string",
    .explanation =
        "The device reads the names and formats of streams from the node's option store as "
        "strings. A number, a string that begins with a type word, such as 'int32:5', and a "
        "string of more than 127 bytes are not stored as strings.",
    .device = "Without the name, the device aborts. Without the format, node set-up throws.",
    .fix = "Write a plain string of at most 127 bytes.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": 12}
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
    .consequences = {&OPTION_TOO_LONG,
                     &OPTION_NOT_STORED,
                     &TYPED_VALUE,
                     &NUMBER_LOST,
                     &DOUBLE_NARROWED,
                     &NUL_IN_OPTION},
    .find = streamNotText,
};

}  // namespace qvgraph
