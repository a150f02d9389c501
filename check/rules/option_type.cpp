#include <string>

#include "check/numbers.h"
#include "check/rules.h"
#include "check/typed_string.h"
#include "check/visiting.h"
#include "check/wording.h"
#include "survey/keys.h"

namespace qvgraph {

namespace {

struct StoredType {
    const char* name;  // with its article
    const char* word;  // its type word; "" for strings
};

// The types of a store, in the order of the alternatives of OptionValue.
const StoredType TYPES[] = {
    {"a string", ""}, {"an int32", "int32"}, {"an int64", "int64"}, {"a float", "float"}};

// The value of an option as it is written, without quotes and type word.
std::string valueIn(const Source& source, const Option& option) {
    if (option.member->isNumber()) {
        return std::string(source.text(option.member->span));
    }
    const auto typed = typedStringIn(option);
    return typed ? typed->value : std::string(untilNul(option.member->text));
}

// Whether the parser reads all of a value as a number of a type.
bool isReadAs(const std::string& word, const std::string& value) {
    const WrittenNumber number = numberWrittenIn(typedString(word, value));
    return !value.empty() && number.fits && number.length == value.size();
}

std::string hintForType(const std::string& word, const std::string& value) {
    if (word.empty()) {
        return "write \"" + value + '"';
    }
    return isReadAs(word, value) ? hintToWriteTyped(word, value)
                                 : "write \"" + word + ":\" followed by a number";
}

// Whether the parser itself looks up the key: other rules report those lookups. The
// key is "" if a family has too few members.
bool isStreamOption(const std::string& key) {
    return key.empty() || hasPrefix(key, "stream_");
}

void reportTypes(const Source& source, const Node& node, Reporter* report) {
    for (const QVLookupScope::Miss& miss : node.misses) {
        const Option* option = optionUnder(node, miss.key);
        if (option != nullptr && option->stored && !isStreamOption(miss.key)) {
            const StoredType& type = TYPES[miss.type];
            report
                ->atValue(*option->member,
                          nameOf(*option) + " is stored as " + TYPES[option->stored->index()].name +
                              ", but " + classOf(node) + " looks it up as " + type.name +
                              ": the lookup finds nothing")
                .hint = hintForType(type.word, valueIn(source, *option));
        }
    }
}

void optionType(const Model& model, Reporter* report) {
    forEachNode(model, [&](const Node& node) {
        if (node.canonical) {
            reportTypes(model.source(), node, report);
        }
    });
}

}  // namespace

constinit const Rule OPTION_TYPE = {
    .code = "option-type",
    .severity = Severity::Warning,
    .family = "options",
    .title = "A node's class looks up an option as a different type",
    .explanation =
        "The notation of an option determines its type: a JSON number is an int32, and a string "
        "without a type word is a string. A lookup finds only options of its own type; it does not "
        "convert. The host records the lookups of a class while it sets up a node.",
    .device = "The lookup finds nothing, as if the option were missing.",
    .fix = "Write the option with the type that the class looks up.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Microphone", "gain": 2},
    "stream_opts": {"stream_output": "sound", "stream_fmt_out": "audio"}
  },
  "node_1": {
    "node_opts": {"node_name": "Speaker"},
    "stream_opts": {"stream_input": "sound", "stream_fmt_in": "audio"}
  }
}})",
            .fixed = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Microphone", "gain": "float:2"},
    "stream_opts": {"stream_output": "sound", "stream_fmt_out": "audio"}
  },
  "node_1": {
    "node_opts": {"node_name": "Speaker"},
    "stream_opts": {"stream_input": "sound", "stream_fmt_in": "audio"}
  }
}})",
            .classes = {{"Microphone", 0, 1, true, true}},
        },
    .find = optionType,
};

}  // namespace qvgraph
