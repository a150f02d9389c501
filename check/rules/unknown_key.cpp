#include <string>
#include <string_view>

#include "check/key_hints.h"
#include "check/rules.h"
#include "check/visiting.h"
#include "check/wording.h"
#include "survey/keys.h"

namespace qvgraph {

namespace {

void checkKeys(const Value* object, Level level, Reporter* report) {
    if (object == nullptr || !object->isObject()) {
        return;
    }
    for (const Value* member : object->children) {
        if (!isReservedKey(level, member->key)) {
            report
                ->atKey(*member,
                        quoted(member->key) + " is not a reserved key of " + toText(level) +
                            ": the device ignores it")
                .hint = hintForUnknown(level, *member);
        }
    }
}

// "stream_opts" can hold any option, and every key with one of these prefixes
// declares a stream.
bool hasMeaningInStreamOptions(std::string_view key) {
    return isReservedKey(Level::StreamOptions, key) || hasPrefix(key, "stream_input") ||
           hasPrefix(key, "stream_output");
}

// 'stream_mode_in_1', as if each input had a mode.
bool isModeOfOneInput(std::string_view key) {
    const std::string_view mode = "stream_mode_in";
    return hasPrefix(key, mode) && key.size() > mode.size() &&
           std::string_view("_0123456789").find(key[mode.size()]) != std::string_view::npos;
}

void reportModeOfOneInput(const Value& member, const Value& streamOptions, Reporter* report) {
    const bool hasMode = streamOptions.member("stream_mode_in") != nullptr;
    report
        ->atKey(member,
                quoted(member.key) +
                    " is not a reserved key, because all inputs share one mode: the device "
                    "stores it as an ordinary option")
        .hint = hasMode ? "remove it; \"stream_mode_in\" already sets the mode of all inputs"
                        : "rename it to \"stream_mode_in\" to set the mode of all inputs";
}

void checkStreamKeys(const Value* streamOptions, Reporter* report) {
    if (streamOptions == nullptr) {
        return;
    }
    for (const Value* member : streamOptions->children) {
        if (hasMeaningInStreamOptions(member->key)) {
            continue;
        }
        if (isModeOfOneInput(member->key)) {
            reportModeOfOneInput(*member, *streamOptions, report);
            continue;
        }
        if (const auto near = nearestKey(Level::StreamOptions, member->key, 2)) {
            report
                ->atKey(*member,
                        quoted(member->key) + " is not a reserved key, but resembles " +
                            nameOf(*near) + ": the device stores it as an ordinary option")
                .hint = hintToRename(*near, *streamOptions);
        }
    }
}

void checkExecutor(const Value& executor, Reporter* report) {
    if (!isMisplaced(executor)) {
        checkKeys(&executor, Level::Executor, report);
    }
}

void checkNode(const Node& node, Reporter* report) {
    if (!isMisplaced(*node.value)) {
        checkKeys(node.value, Level::Node, report);
        checkStreamKeys(node.streamOptions(), report);
    }
}

void unknownKey(const Model& model, Reporter* report) {
    for (const Pipe& pipe : model.pipes()) {
        checkKeys(pipe.value, Level::Pipe, report);
        checkKeys(pipe.value->member("thread_opts"), Level::ThreadOptions, report);
        for (const OptionSet& executor : pipe.executors) {
            checkExecutor(*executor.value, report);
        }
        for (const Node& node : pipe.nodes) {
            checkNode(node, report);
        }
    }
}

}  // namespace

constinit const Rule UNKNOWN_KEY = {
    .code = "unknown-key",
    .severity = Severity::Warning,
    .family = "keys",
    .title = "A key has no meaning in its object",
    .explanation =
        "Pipes, nodes, executors and \"thread_opts\" have only a few reserved keys; all other "
        "keys are ignored. In \"stream_opts\", where every key is an option, this rule reports "
        "the keys that resemble a reserved key.",
    .device =
        "The member is ignored, or stored as an option that no node class looks up; nothing is "
        "logged.",
    .fix = "Correct the key, move the member to where it belongs, or remove it.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "default_link_mode": "sync"
}})",
            .fixed = R"({"pipe_0": {
  "default_mode_link": "sync"
}})",
        },
    .consequences = {&EXECUTOR_WITHOUT_OPTIONS},
    .find = unknownKey,
};

}  // namespace qvgraph
