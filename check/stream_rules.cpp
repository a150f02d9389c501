// What is wrong with the names, formats and modes of a node's streams.
#include <algorithm>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "check/node_access.h"
#include "check/rule.h"
#include "check/stored_option.h"
#include "check/words.h"
#include "survey/keys.h"

namespace qvgraph {

namespace {

// What follows a prefix in a key; "" where the key does not have it.
std::string suffixOf(const std::string& key, const char* prefix) {
    return hasPrefix(key, prefix) ? key.substr(std::string_view(prefix).size()) : "";
}

std::string familyOf(const char* prefix) {
    return "'" + std::string(prefix) + "<k>'";
}

const Value& placeOf(const NodeSubject& node, const DeclaredEnd& end) {
    return end.place != nullptr ? *end.place : *node.value;
}

// ---- single-stream-key --------------------------------------------------------

void reportSingle(const NodeSubject& node, const Side& side, Reporter* report) {
    const Value& lone = *side.declared[0];
    Finding& finding = report->atKey(lone,
                                     quoted(lone.key) + " is the node's only " + side.word +
                                         ", whose name is looked up as " +
                                         inDoubleQuotes(side.nameKey) + ": aborts the process");
    finding.hint = "rename it to " + inDoubleQuotes(side.nameKey);
    if (side.ends[0].formatPlace == nullptr && !side.formatMembers.empty()) {
        const Value& format = *side.formatMembers[0];
        finding.hint += ", and " + quoted(format.key) + " to " + inDoubleQuotes(side.formatKey);
    }
    relate(meantAsNames(node, side), &finding);  // it may not be the only one
}

void singleStreamKey(const Subject& subject, Reporter* report) {
    forEachSide(subject, [report](const NodeSubject& node, const Side& side) {
        if (namingOf(node, side) == Naming::SingleIndexed) {
            reportSingle(node, side, report);
        }
    });
}

const Rule SINGLE_STREAM_KEY = {
    "single-stream-key",
    Severity::Error,
    "streams",
    "The only input or output of a node has an index in its key",
    "A node with one input names it by \"stream_input\", and one with several by "
    "'stream_input_<k>'; outputs likewise. Here there is one alone, under a key with an ending.",
    "The plain key is looked up and not found: the process is aborted.",
    "Take the ending off the key, and off that of the format.",
    {R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output_0": "a", "stream_fmt_out_0": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
  }
}})",
     R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
  }
}})",
     {}},
    {},
    singleStreamKey,
    {"unknown-key", "stream-key-in-extra"}};

// ---- stream-keys-mixed ----------------------------------------------------------

void reportMixed(const Side& side, Reporter* report) {
    const auto isOutside = [&](const Value* declared) {
        return !hasPrefix(declared->key, side.nameFamily);
    };
    const auto outside = std::find_if(side.declared.begin(), side.declared.end(), isOutside);
    const Value& other = **(outside == side.declared.begin() ? outside + 1 : side.declared.begin());
    const bool aborts = std::any_of(side.ends.begin(), side.ends.end(), isNameless);
    Finding& finding = report->atKey(
        **outside,
        quoted((*outside)->key) + " is one of " + counted(side.declared.size(), side.word) +
            ", but several are looked up as " + familyOf(side.nameFamily) +
            " alone: " + (aborts ? "aborts the process" : "it is left out"));
    finding.hint = "rename it to " + quoted(freeNameKey(side)) + ", and its format likewise";
    finding.related.push_back({"another " + std::string(side.word) + " is here", other.keySpan});
}

void streamKeysMixed(const Subject& subject, Reporter* report) {
    forEachSide(subject, [report](const NodeSubject& node, const Side& side) {
        if (namingOf(node, side) == Naming::Mixed) {
            reportMixed(side, report);
        }
    });
}

const Rule STREAM_KEYS_MIXED = {
    "stream-keys-mixed",
    Severity::Error,
    "streams",
    "One of a node's several inputs or outputs has no index in its key",
    "A node with several inputs names each by 'stream_input_<k>', one with several outputs by "
    "'stream_output_<k>'. A key outside the family, as \"stream_input\", counts as one of them "
    "but is never looked up.",
    "One name fewer is found than there are streams: the process is aborted.",
    "Give the key an index that no other has, and its format the same.",
    {R"({"pipe_0": {
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
     R"({"pipe_0": {
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
     {}},
    {},
    streamKeysMixed};

// ---- stream-not-text --------------------------------------------------------------

// Whether the desk's own store would have a text of it.
bool isText(const Value& value) {
    return value.isString() && !isTooLong(value) && !typedIn(value);
}

// Why a store has no text for a value.
std::string whyNoText(const NodeSubject& node, const Value& value) {
    if (!value.isString()) {
        return std::string("is ") + toText(value.kind) + ", not a text";
    }
    if (isTooLong(value)) {
        return "has " + std::to_string(untilNul(value.text).size()) +
               " bytes, and 127 are the most";
    }
    if (const auto typed = typedIn(value)) {
        return "is " + quoted(typed->text) + ", stored as a number because '" + typed->word +
               "' is a type";
    }
    return "is not found in the options of " + classOf(node);
}

void reportNoText(const NodeSubject& node,
                  const Value& value,
                  const std::string& what,
                  const char* consequence,
                  Reporter* report) {
    report->atValue(value, "the " + what + ' ' + whyNoText(node, value) + ": " + consequence).hint =
        isText(value) ? "see what the class keeps in its option store"
                      : "write a plain text of at most 127 bytes";
}

void streamNotText(const Subject& subject, Reporter* report) {
    forEachUnreadySide(subject, [report](const NodeSubject& node, const Side& side) {
        const std::string stream = std::string(side.word) + " stream";
        for (const DeclaredEnd& end : side.ends) {
            if (!end.name && end.place != nullptr) {
                reportNoText(
                    node, *end.place, "name of the " + stream, "aborts the process", report);
            }
            const bool isSaid = !end.name && end.formatPlace != nullptr && isText(*end.formatPlace);
            if (!end.format && end.formatPlace != nullptr && !isSaid) {
                reportNoText(node, *end.formatPlace, "format of the " + stream, "throws", report);
            }
        }
    });
}

const Rule STREAM_NOT_TEXT = {
    "stream-not-text",
    Severity::Error,
    "streams",
    "The name or format of a stream is not stored as a text",
    "Names and formats of streams are read back from the node's option store, which finds plain "
    "texts alone: no number, no text with a type word such as 'int32:5', nothing longer than 127 "
    "bytes.",
    "Without the name the process is aborted; without the format an exception leaves the set-up.",
    "Write a plain text of at most 127 bytes.",
    {R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": 12}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
  }
}})",
     R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
  }
}})",
     {}},
    {"option-too-long",
     "option-not-stored",
     "typed-value",
     "number-lost",
     "double-narrowed",
     "nul-in-option"},
    streamNotText};

// ---- stream-name-empty ----------------------------------------------------------------

void streamNameEmpty(const Subject& subject, Reporter* report) {
    forEachUnreadySide(subject, [report](const NodeSubject& node, const Side& side) {
        for (const DeclaredEnd& end : side.ends) {
            if (end.name && end.name->empty()) {
                report
                    ->atValue(placeOf(node, end),
                              "the name of the " + std::string(side.word) +
                                  " stream is empty: it is refused, the node is not "
                                  "initialised, and success is reported")
                    .hint = "name the stream";
            }
        }
    });
}

const Rule STREAM_NAME_EMPTY = {
    "stream-name-empty",
    Severity::Error,
    "streams",
    "The name of a stream is empty",
    "The task graph has no stream without a name.",
    "The stream is refused and the rest of the node's set-up left out, but success is reported: "
    "the node is never initialised.",
    "Name the stream.",
    {R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "", "stream_fmt_out": "f"}
  }
}})",
     R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
  }
}})",
     {}},
    {"nul-in-option"},
    streamNameEmpty};

// ---- stream-format-missing ---------------------------------------------------------------

// Under which key the format of an end would be expected.
std::string formatKeyFor(const Side& side, const DeclaredEnd& end) {
    if (side.managers == 1) {
        return side.formatKey;
    }
    return side.formatFamily + suffixOf(end.key, side.nameFamily);
}

bool lacksFormat(const DeclaredEnd& end) {
    return end.name && !end.name->empty() && !end.format && end.formatPlace == nullptr;
}

// The ends to say it of. Several are paired in the order of their keys, so that
// a format that is missing in the middle shifts those behind it: where that
// explains what is missing, it is the one without a partner.
std::vector<const DeclaredEnd*> endsWithoutFormat(const Side& side) {
    std::vector<const DeclaredEnd*> lacking;
    std::vector<const DeclaredEnd*> partnerless;
    std::set<std::string> formats;
    for (const Value* member : side.formatMembers) {
        formats.insert(member->key);
    }
    for (const DeclaredEnd& end : side.ends) {
        if (lacksFormat(end)) {
            lacking.push_back(&end);
        }
        if (end.name && !end.name->empty() && formats.count(formatKeyFor(side, end)) == 0) {
            partnerless.push_back(&end);
        }
    }
    return partnerless.size() == lacking.size() ? partnerless : lacking;
}

void reportNoFormat(const NodeSubject& node,
                    const Side& side,
                    const DeclaredEnd& end,
                    const std::vector<MeantMember>& meant,
                    Reporter* report) {
    const std::string key = formatKeyFor(side, end);
    Finding& finding =
        report->atKey(placeOf(node, end),
                      "the " + std::string(side.word) + " stream " + quoted(*end.name) +
                          " has no format: " + nameOfKey(side, key) + " is missing, which throws");
    finding.hint = "add " + inDoubleQuotes(key) + ": \"...\" to \"stream_opts\"";
    relate(meant, &finding);
}

// A format that may be the one of the only end without: of the other side, where
// it belongs to none, or one that the node would have with another number of
// streams.
std::vector<MeantMember> formatOfOtherKind(const NodeSubject& node,
                                           const Side& side,
                                           const std::string& key) {
    const Side& other = &side == &node.inputs ? node.outputs : node.inputs;
    std::string why = "there is no " + std::string(other.word) + " for this";
    const Value* format = other.hasSpareFormat() ? other.differing->format : nullptr;
    if (side.managers == 1 && side.formatMembers.size() == 1) {
        why = "such a key is for nodes with several " + std::string(side.word) + 's';
        format = side.formatMembers[0];
    } else if (side.managers > 1 && node.streamOptions()->member(side.formatKey) != nullptr) {
        why = "this key is for nodes with one " + std::string(side.word);
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

void reportNoFormats(const NodeSubject& node, const Side& side, Reporter* report) {
    const std::vector<const DeclaredEnd*> ends = endsWithoutFormat(side);
    if (ends.empty()) {
        return;
    }
    auto meant = meantAsFormats(node, side);
    for (const DeclaredEnd* end : ends) {
        const std::string key = formatKeyFor(side, *end);
        std::vector<MeantMember>& members = meant[key];
        if (members.empty() && ends.size() == 1) {
            members = formatOfOtherKind(node, side, key);
        }
        reportNoFormat(node, side, *end, members, report);
    }
}

void streamFormatMissing(const Subject& subject, Reporter* report) {
    forEachUnreadySide(subject, [report](const NodeSubject& node, const Side& side) {
        reportNoFormats(node, side, report);
    });
}

const Rule STREAM_FORMAT_MISSING = {
    "stream-format-missing",
    Severity::Error,
    "streams",
    "A stream of a node has no format",
    "Each stream of a node needs a format: \"stream_fmt_in\" beside \"stream_input\", "
    "'stream_fmt_in_<k>' beside 'stream_input_<k>', and \"stream_fmt_out\" for outputs. The "
    "plain keys may also stand in an extra option object.",
    "An exception leaves the set-up, with the node half wired.",
    "Add the format.",
    {R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
  }
}})",
     R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
  }
}})",
     {}},
    {},
    streamFormatMissing,
    {"unknown-key", "stream-key-in-extra", "stream-families-differ"}};

// ---- stream-families-differ -----------------------------------------------------------------

// The key of the name that a format would go with.
std::string nameKeyFor(const Side& side, const Value& format) {
    return side.nameKey + format.key.substr(std::string_view(side.formatKey).size());
}

void reportPair(const Side& side,
                const FormatPair& pair,
                const std::vector<MeantMember>& meant,
                Reporter* report) {
    const Value& format = *pair.format;
    if (pair.name == nullptr) {
        Finding& finding = report->atKey(
            format, quoted(format.key) + " belongs to no " + std::string(side.word) + " stream");
        const bool isExtra =
            side.managers == 1 || (side.managers > 1 && format.key == side.formatKey);
        finding.hint = isExtra ? "remove it"
                               : "add " + inDoubleQuotes(nameKeyFor(side, format)) +
                                     ": \"...\", or remove the format";
        relate(meant, &finding);
        return;
    }
    Finding& finding =
        report->atKey(format,
                      quoted(format.key) + " is the format of " + quoted(pair.name->key) +
                          ": the two families are paired in the order of their keys");
    finding.hint = "give each name and its format the same ending";
    finding.related.push_back({"it is paired with this", pair.name->keySpan});
    relate(meant, &finding);
}

void streamFamiliesDiffer(const Subject& subject, Reporter* report) {
    forEachSide(subject, [report](const NodeSubject& node, const Side& side) {
        const auto& pair = side.differing;
        if (!pair || !hasStreams(node) || namingOf(node, side) != Naming::Right) {
            return;
        }
        const std::vector<MeantMember> meant = meantAsNames(node, side);
        const bool isTold = std::any_of(
            meant.begin(), meant.end(), [](const MeantMember& name) { return name.isReported; });
        if (!isTold) {
            reportPair(side, *pair, meant, report);
        }
    });
}

const Rule STREAM_FAMILIES_DIFFER = {
    "stream-families-differ",
    Severity::Warning,
    "streams",
    "Names and formats of a node's streams do not go together",
    "Of several inputs or outputs, the k-th name goes with the k-th format, each family counted "
    "by itself in the order of its keys; the endings themselves are not compared. Where they "
    "differ, a stream may get a format that is meant for another; a format without a name is "
    "likely to be left of a stream that should be there.",
    "Each stream gets the format that stands at its position; one that is left over is an option "
    "without a meaning.",
    "Give each name and its format the same ending, and remove formats that are left over.",
    {R"({"pipe_0": {
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
     R"({"pipe_0": {
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
     {}},
    {},
    streamFamiliesDiffer};

// ---- stream-key-in-extra ------------------------------------------------------------------------

bool isCountedKey(const std::string& key) {
    return isStreamKey(key) || hasPrefix(key, "stream_fmt_in_") ||
           hasPrefix(key, "stream_fmt_out_");
}

void streamKeyInExtra(const Subject& subject, Reporter* report) {
    for (const OptionObject& object : subject.optionObjects()) {
        if (object.node == nullptr || object.value == object.node->streamOptions()) {
            continue;
        }
        const Value* counted = object.node->streamOptions();
        for (const Value* member : object.value->children) {
            const bool isThere = counted != nullptr && counted->member(member->key) != nullptr;
            if (isCountedKey(member->key) && !isThere) {
                report
                    ->atKey(*member,
                            quoted(member->key) + " does not count in " +
                                inDoubleQuotes(object.value->key) +
                                ": streams are declared in \"stream_opts\" alone")
                    .hint = "move it to \"stream_opts\"";
            }
        }
    }
}

const Rule STREAM_KEY_IN_EXTRA = {
    "stream-key-in-extra",
    Severity::Warning,
    "streams",
    "A key that declares a stream stands outside \"stream_opts\"",
    "Streams are counted, and the keys of several looked up, in \"stream_opts\" alone. Elsewhere "
    "such a key is an option like any other, unless \"stream_opts\" has it too.",
    "The stream is not declared; a class that takes its number of streams from the declaration "
    "has one fewer.",
    "Move the key to \"stream_opts\".",
    {R"({"pipe_0": {
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
     R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
  }
}})",
     {{"Display", 1, 0}}},
    {},
    streamKeyInExtra};

// ---- stream-mode ------------------------------------------------------------------------------------

const std::string NEWEST = "remain_newest";

// Lower case, with '_' between the words.
std::string plainOf(std::string text) {
    for (char& letter : text) {
        if (letter == '-' || letter == ' ') {
            letter = '_';
        } else if (letter >= 'A' && letter <= 'Z') {
            letter = static_cast<char>(letter - 'A' + 'a');
        }
    }
    return text;
}

// The text of a mode; nothing where it is stored as a number or not at all.
std::optional<std::string> modeIn(const Value& mode) {
    if (!mode.isString() || typedIn(mode)) {
        return std::nullopt;
    }
    return std::string(untilNul(mode.text));
}

// "newest_only" is no mistyped "remain_newest", but means it.
bool isMeantAsNewest(const std::string& text) {
    const std::string plain = plainOf(text);
    return distanceBetween(plain, NEWEST, 2) <= 2 || plain.find("newest") != std::string::npos ||
           plain.find("latest") != std::string::npos;
}

// Every mode that is not left out for its length.
template <typename Look>
void forEachMode(const Subject& subject, Look look) {
    for (const OptionObject& object : subject.optionObjects()) {
        const Value* mode = object.value->member("stream_mode_in");
        if (object.node != nullptr && mode != nullptr && !isTooLong(*mode)) {
            look(*mode);
        }
    }
}

void streamMode(const Subject& subject, Reporter* report) {
    forEachMode(subject, [report](const Value& mode) {
        const auto text = modeIn(mode);
        if (!text) {
            report->atValue(mode, "\"stream_mode_in\" is no plain text: it has no effect").hint =
                "write \"remain_newest\", or remove it";
        } else if (*text != NEWEST && isMeantAsNewest(*text)) {
            report->atValue(mode, quoted(*text) + " is not \"remain_newest\": it has no effect")
                .hint = "write \"remain_newest\"";
        }
    });
}

const Rule STREAM_MODE = {
    "stream-mode",
    Severity::Warning,
    "streams",
    "The mode of a node's inputs is meant as \"remain_newest\", or no text",
    "\"stream_mode_in\" has one value with a meaning, \"remain_newest\", which has to be written "
    "exactly so. A text that is nearly that, or says newest or latest, was probably meant to be "
    "it; and what is no text is no mode.",
    "The inputs are not set to keep the newest item only.",
    "Write \"remain_newest\", or leave the mode out.",
    {R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {
      "stream_input": "a", "stream_fmt_in": "f",
      "stream_mode_in": "Remain_Newest"
    }
  }
}})",
     R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {
      "stream_input": "a", "stream_fmt_in": "f",
      "stream_mode_in": "remain_newest"
    }
  }
}})",
     {}},
    {"option-not-stored", "typed-value", "number-lost", "double-narrowed", "nul-in-option"},
    streamMode};

// ---- stream-mode-unknown ----------------------------------------------------------------------------

void streamModeUnknown(const Subject& subject, Reporter* report) {
    forEachMode(subject, [report](const Value& mode) {
        const auto text = modeIn(mode);
        if (text && *text != NEWEST && !isMeantAsNewest(*text)) {
            report->atValue(mode, quoted(*text) + " is no mode: every item is kept").hint =
                "write \"remain_newest\", or remove it unless the node's class reads it";
        }
    });
}

const Rule STREAM_MODE_UNKNOWN = {
    "stream-mode-unknown",
    Severity::Note,
    "streams",
    "The mode of a node's inputs has no meaning",
    "\"stream_mode_in\" has one value with a meaning, \"remain_newest\". Any other text is an "
    "option like others, which the node's class may read.",
    "The inputs keep every item, as without a mode; the text is in the node's options.",
    "Write \"remain_newest\", or leave the mode out.",
    {R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {
      "stream_input": "a", "stream_fmt_in": "f",
      "stream_mode_in": "drop_oldest"
    }
  }
}})",
     R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {
      "stream_input": "a", "stream_fmt_in": "f",
      "stream_mode_in": "remain_newest"
    }
  }
}})",
     {}},
    {},
    streamModeUnknown};

}  // namespace

std::vector<Rule> streamRules() {
    return {SINGLE_STREAM_KEY,
            STREAM_KEYS_MIXED,
            STREAM_NOT_TEXT,
            STREAM_NAME_EMPTY,
            STREAM_FORMAT_MISSING,
            STREAM_FAMILIES_DIFFER,
            STREAM_KEY_IN_EXTRA,
            STREAM_MODE,
            STREAM_MODE_UNKNOWN};
}

}  // namespace qvgraph
