// Options that do not reach their store, or not whole, or not for good; or that
// are not found there.
#include <cmath>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "check/node_access.h"
#include "check/number_rules.h"
#include "check/rule.h"
#include "check/stored_option.h"
#include "check/words.h"
#include "survey/keys.h"

namespace qvgraph {

namespace {

// ---- option-too-long --------------------------------------------------------

void optionTooLong(const Subject& subject, Reporter* report) {
    forEachOption(subject, [report](const Value& option) {
        if (isTooLong(option)) {
            const size_t bytes = untilNul(option.text).size();
            report
                ->atValue(option,
                          nameOf(option) + " is not stored: its text has " + std::to_string(bytes) +
                              " bytes, and 127 are the most")
                .hint = "shorten the text by " + counted(bytes - MOST_OPTION_BYTES, "byte");
        }
    });
}

const Rule OPTION_TOO_LONG = {
    "option-too-long",
    Severity::Error,
    "options",
    "an option's text is longer than 127 bytes",
    "An option's text may have up to 127 bytes, its type word included. Letters beyond ASCII have "
    "more than one byte each.",
    "The parser logs an error and stores nothing under the key; it goes on with the other options.",
    "Shorten the text, for example to the name of a file that holds the rest.",
    {
        // No line break can stand in a text.
        R"({"pipe_0": {
  "link_0": {
    "filter": "tcp port 80 or tcp port 443 or tcp port 8080 or )"
        R"(tcp port 8443 or tcp port 554 or tcp port 1935 or udp port 5004 or udp port 5005"
  }
}})",
        R"({"pipe_0": {
  "link_0": {
    "filter": "file:/etc/doors/filter.txt"
  }
}})",
        {},
    },
    {},
    optionTooLong,
};

// ---- option-not-stored ------------------------------------------------------

std::string hintForUnstored(const Source& source, const Value& option) {
    switch (option.kind) {
        case ValueKind::Null:
            return "give it a value, or remove it";
        case ValueKind::Bool:
            return source.text()[option.span.begin] == 't' ? "write 1 in place of true"
                                                           : "write 0 in place of false";
        case ValueKind::Array:
            return "give each element a key of its own";
        case ValueKind::Object:
            return "move its members up, to the options beside it";
        case ValueKind::Number:
        case ValueKind::String:
            break;
    }
    return "";
}

void optionNotStored(const Subject& subject, Reporter* report) {
    forEachOption(subject, [&](const Value& option) {
        if (!option.isNumber() && !option.isString()) {
            report
                ->atValue(option,
                          nameOf(option) + " is not stored: an option is a number or a text, not " +
                              (option.kind == ValueKind::Null ? "null" : toText(option.kind)))
                .hint = hintForUnstored(subject.source(), option);
        }
    });
}

const Rule OPTION_NOT_STORED = {
    "option-not-stored",
    Severity::Warning,
    "options",
    "an option is neither a number nor a text",
    "An option store keeps numbers and texts. Null, true and false, arrays and objects do not "
    "become options.",
    "The parser skips the option without a record, so whoever asks for it finds nothing.",
    "Write 1 and 0 for true and false; give elements and members keys of their own.",
    {
        R"({"pipe_0": {
  "link_0": {
    "drop_late": true
  }
}})",
        R"({"pipe_0": {
  "link_0": {
    "drop_late": 1
  }
}})",
        {},
    },
    {},
    optionNotStored,
};

// ---- nul-in-option ----------------------------------------------------------

bool hasNul(const std::string& text) {
    return text.find('\0') != std::string::npos;
}

void reportNulInKey(const Value& object, const Value& option, Reporter* report) {
    Finding& finding = report->atKey(
        option, "the key of an option is cut to " + nameOf(option) + ": it ends at its NUL");
    finding.hint = "remove the NUL from the key";
    if (const Value* other = object.member(untilNul(option.key))) {
        finding.related.push_back({"this option has that key too", other->keySpan});
    }
}

void nulInOption(const Subject& subject, Reporter* report) {
    for (const OptionObject& object : subject.optionObjects()) {
        for (const Value* option : object.value->children) {
            const bool isStored = storedOf(*option).has_value();
            if (isStored && hasNul(option->key)) {
                reportNulInKey(*object.value, *option, report);
            }
            if (isStored && hasNul(option->text)) {
                report
                    ->atValue(*option,
                              nameOf(*option) + " is cut to " + quoted(untilNul(option->text)) +
                                  ": a text ends at its NUL")
                    .hint = "remove the NUL from the text";
            }
        }
    }
}

const Rule NUL_IN_OPTION = {
    "nul-in-option",
    Severity::Warning,
    "options",
    "an option's key or text holds a NUL",
    "Keys and texts of options end at their first NUL, which JSON writes as \\u0000.",
    "The parser stores what stands before the NUL. Two keys that differ only behind it are one: "
    "the later takes the place of the earlier.",
    "Remove the NUL, or write what it separates as two options.",
    {
        R"({"pipe_0": {
  "link_0": {
    "names": "left\u0000right"
  }
}})",
        R"({"pipe_0": {
  "link_0": {
    "names": "left right"
  }
}})",
        {},
    },
    {"typed-value", "type-word", "double-narrowed"},
    nulInOption,
};

// ---- option-overridden ------------------------------------------------------

// An option that the store has in the end.
struct Winner {
    size_t object;  // in OPTION_OBJECTS
    const Value* option;
    Stored stored;
};

bool isNan(const Stored& stored) {
    const auto* real = std::get_if<float>(&stored);
    return real != nullptr && std::isnan(*real);
}

bool isSame(const Stored& a, const Stored& b) {
    return a == b || (isNan(a) && isNan(b));
}

// With the type of a number, which may be all that differs.
std::string typedTextOf(const Stored& stored) {
    static const char* const TYPES[] = {"", "int32 ", "int64 ", "float "};
    return TYPES[stored.index()] + textOf(stored);
}

void reportOverridden(const Value& option, const Winner& winner, Reporter* report) {
    Finding& finding =
        report->atKey(option,
                      nameOf(option) + " is overridden: \"" + OPTION_OBJECTS[winner.object] +
                          "\" sets it to " + typedTextOf(winner.stored) + " later");
    finding.related.push_back({"it is overridden here", winner.option->keySpan});
    finding.hint = "remove the one that is not meant";
}

// From the last option that is copied to the first.
void reportOverriddenIn(const NodeSubject& node, Reporter* report) {
    std::map<std::string_view, Winner> winners;
    for (size_t i = OPTION_OBJECTS.size(); i-- > 0;) {
        if (node.objects[i] == nullptr) {
            continue;
        }
        const auto& options = node.objects[i]->children;
        for (auto option = options.rbegin(); option != options.rend(); ++option) {
            const auto stored = storedOf(**option);
            if (!stored) {
                continue;
            }
            const auto [found, isNew] =
                winners.emplace(untilNul((*option)->key), Winner{i, *option, *stored});
            const Winner& winner = found->second;
            if (!isNew && winner.object != i && !isSame(winner.stored, *stored)) {
                reportOverridden(**option, winner, report);
            }
        }
    }
}

void optionOverridden(const Subject& subject, Reporter* report) {
    for (const PipeSubject& pipe : subject.pipes()) {
        for (const NodeSubject& node : pipe.nodes) {
            reportOverriddenIn(node, report);
        }
    }
}

const Rule OPTION_OVERRIDDEN = {
    "option-overridden",
    Severity::Note,
    "options",
    "a later option object of the node sets the same key",
    "A node's option objects are copied into one store: \"node_opts\", \"stream_opts\", "
    "\"node_opts_extra\" and \"stream_opts_extra\", in this order. Where two of them set a key to "
    "different values, the earlier one is lost.",
    "In a store whose setters replace what stands under a key, the later object wins. The node is "
    "made by the \"node_name\" of \"node_opts\" all the same.",
    "Remove one of the two, unless the later one is there to override the earlier.",
    {
        R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera", "rate": 25},
    "stream_opts": {"stream_output": "frames", "stream_fmt_out": "image"},
    "node_opts_extra": {"rate": 30}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "frames", "stream_fmt_in": "image"}
  }
}})",
        R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera", "rate": 30},
    "stream_opts": {"stream_output": "frames", "stream_fmt_out": "image"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "frames", "stream_fmt_in": "image"}
  }
}})",
        {},
    },
    {},
    optionOverridden,
};

// ---- option-type ------------------------------------------------------------

// The types of a store, in its order.
struct TypeWords {
    const char* a;
    const char* word;  // behind which a number of the type is written
};
const TypeWords TYPES[] = {
    {"a text", ""}, {"an int32", "int32"}, {"an int64", "int64"}, {"a float", "float"}};

// The text of an option without quotes and type word.
std::string valueIn(const Source& source, const Value& option) {
    if (option.isNumber()) {
        return source.text().substr(option.span.begin, option.span.end - option.span.begin);
    }
    const auto typed = typedIn(option);
    return typed ? typed->value : std::string(untilNul(option.text));
}

// Whether a number of a type is written so, and read to its end.
bool isWritten(const std::string& word, const std::string& value) {
    TypedText typed;
    typed.word = word;
    typed.value = value;
    const Reading reading = readingOf(typed);
    return !value.empty() && reading.fits && reading.length == value.size();
}

std::string hintForType(const std::string& word, const std::string& value) {
    if (word.empty()) {
        return "write \"" + value + '"';
    }
    return isWritten(word, value) ? "write \"" + word + ':' + value + '"'
                                  : "write \"" + word + ":\" and a number";
}

// Whether the parser itself looks the key up, as which it has rules of its own.
// Where a family is too short, that is "".
bool isStreamOption(const std::string& key) {
    return key.empty() || hasPrefix(key, "stream_");
}

void reportTypes(const Source& source, const NodeSubject& node, Reporter* report) {
    for (const QVLookupScope::Miss& miss : node.node->misses) {
        const Value* option = placeOf(node, miss.key);
        const auto stored = option == nullptr ? std::nullopt : storedOf(*option);
        if (stored && !isStreamOption(miss.key)) {
            const TypeWords& type = TYPES[miss.type];
            report
                ->atValue(*option,
                          nameOf(*option) + " is stored as " + TYPES[stored->index()].a + ", but " +
                              classOf(node) + " looks for " + type.a + ": it finds nothing")
                .hint = hintForType(type.word, valueIn(source, *option));
        }
    }
}

void optionType(const Subject& subject, Reporter* report) {
    forEachNode(subject, [&](const NodeSubject& node) {
        if (node.canonical) {
            reportTypes(subject.source(), node, report);
        }
    });
}

const Rule OPTION_TYPE = {
    "option-type",
    Severity::Warning,
    "options",
    "a node's class looks for an option of another type",
    "An option has the type that it is written with: a JSON number is an int32, a text without a "
    "type word is a text. A lookup finds an option of its own type only, and converts nothing. "
    "What a class looks for is seen on the desk while its node is set up.",
    "The class finds nothing under the key, as if the option were not there.",
    "Write the option as the type that the class looks for.",
    {
        R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Microphone", "gain": 2},
    "stream_opts": {"stream_output": "sound", "stream_fmt_out": "audio"}
  },
  "node_1": {
    "node_opts": {"node_name": "Speaker"},
    "stream_opts": {"stream_input": "sound", "stream_fmt_in": "audio"}
  }
}})",
        R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Microphone", "gain": "float:2"},
    "stream_opts": {"stream_output": "sound", "stream_fmt_out": "audio"}
  },
  "node_1": {
    "node_opts": {"node_name": "Speaker"},
    "stream_opts": {"stream_input": "sound", "stream_fmt_in": "audio"}
  }
}})",
        {{"Microphone", 0, 1, true, true}},
    },
    {},
    optionType,
};

}  // namespace

std::vector<Rule> optionRules() {
    std::vector<Rule> rules = {
        OPTION_TOO_LONG, OPTION_NOT_STORED, NUL_IN_OPTION, OPTION_OVERRIDDEN, OPTION_TYPE};
    const std::vector<Rule> numbers = numberRules();
    rules.insert(rules.end(), numbers.begin(), numbers.end());
    return rules;
}

}  // namespace qvgraph
