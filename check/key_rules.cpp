// Keys and sections that are left out without a word, and values of pipes that
// are read as something else.
#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "check/key_hints.h"
#include "check/rule.h"
#include "check/words.h"
#include "survey/keys.h"

namespace qvgraph {

namespace {

// Whether a member only by accident begins as nodes or executors do:
// "node_opts" in a pipe.
bool isMisplaced(const Value& member) {
    return keyElsewhere(Level::Pipe, member.key) != nullptr;
}

// ---- unknown-key ------------------------------------------------------------

void checkKeys(const Value* object, Level level, Reporter* report) {
    if (object == nullptr || !object->isObject()) {
        return;
    }
    for (const Value* member : object->children) {
        if (!isKnownKey(level, member->key)) {
            report
                ->atKey(*member,
                        quoted(member->key) + " is no key of " + toText(level) +
                            ": a device ignores it")
                .hint = hintForUnknown(level, *member);
        }
    }
}

// Any option may stand in "stream_opts", and every key that begins as the name
// of a stream counts as one.
bool hasMeaningInStreamOptions(const std::string& key) {
    return isKnownKey(Level::StreamOptions, key) || hasPrefix(key, "stream_input") ||
           hasPrefix(key, "stream_output");
}

// 'stream_mode_in_1', as if each input had a mode.
bool isModeOfOne(const std::string& key) {
    const std::string mode = "stream_mode_in";
    return hasPrefix(key, mode.c_str()) && key.size() > mode.size() &&
           std::string_view("_0123456789").find(key[mode.size()]) != std::string_view::npos;
}

void reportModeOfOne(const Value& member, const Value& streamOptions, Reporter* report) {
    const bool isThere = streamOptions.member("stream_mode_in") != nullptr;
    report
        ->atKey(member,
                quoted(member.key) +
                    " is stored as an option like any other: no input has a mode of its own")
        .hint = isThere ? "remove it; \"stream_mode_in\" is there, and counts for all inputs"
                        : "write \"stream_mode_in\" if all inputs are meant: it counts for each";
}

void checkStreamKeys(const Value* streamOptions, Reporter* report) {
    if (streamOptions == nullptr) {
        return;
    }
    for (const Value* member : streamOptions->children) {
        if (hasMeaningInStreamOptions(member->key)) {
            continue;
        }
        if (isModeOfOne(member->key)) {
            reportModeOfOne(*member, *streamOptions, report);
            continue;
        }
        if (const auto near = nearestKey(Level::StreamOptions, member->key, 2)) {
            report
                ->atKey(*member,
                        quoted(member->key) + " is nearly " + nameOf(*near) +
                            ", but is stored as an option like any other")
                .hint = hintToWrite(*near, *streamOptions);
        }
    }
}

void unknownKey(const Subject& subject, Reporter* report) {
    for (const PipeSubject& pipe : subject.pipes()) {
        checkKeys(pipe.value, Level::Pipe, report);
        checkKeys(pipe.value->member("thread_opts"), Level::ThreadOptions, report);
        for (const Value* executor : pipe.executors) {
            if (!isMisplaced(*executor)) {
                checkKeys(executor, Level::Executor, report);
            }
        }
        for (const NodeSubject& node : pipe.nodes) {
            if (!isMisplaced(*node.value)) {
                checkKeys(node.value, Level::Node, report);
                checkStreamKeys(node.streamOptions(), report);
            }
        }
    }
}

const Rule UNKNOWN_KEY = {
    "unknown-key",
    Severity::Warning,
    "keys",
    "A key has no meaning where it stands",
    "Pipes, nodes, executors and \"thread_opts\" have a few keys each; all others are ignored. In "
    "\"stream_opts\", where every key is an option, those are named that are nearly one with a "
    "meaning.",
    "The member is ignored, or stored as an option that nobody asks for; nothing is logged.",
    "Correct the key, move the member to where it belongs, or remove it.",
    {R"({"pipe_0": {
  "default_link_mode": "sync"
}})",
     R"({"pipe_0": {
  "default_mode_link": "sync"
}})",
     {}},
    {"executor-without-options"},
    unknownKey};

// ---- section-ignored --------------------------------------------------------

void checkSection(const Value* section,
                  const std::string& name,
                  const char* outcome,
                  Reporter* report) {
    if (section != nullptr && !section->isObject()) {
        report
            ->atValue(*section,
                      name + " is " + toText(section->kind) + ", not an object: " + outcome)
            .hint = "write an object, {...}, or remove it";
    }
}

void checkExecutor(const Value& executor, Reporter* report) {
    const char* outcome = "the executor has no options";
    checkSection(&executor, quoted(executor.key), outcome, report);
    checkSection(executor.member("executor_opts"), "\"executor_opts\"", outcome, report);
}

void sectionIgnored(const Subject& subject, Reporter* report) {
    for (const PipeSubject& pipe : subject.pipes()) {
        checkSection(pipe.value->member("thread_opts"),
                     "\"thread_opts\"",
                     "a device gets 0 threads",
                     report);
        for (const Value* executor : pipe.executors) {
            if (!isMisplaced(*executor)) {
                checkExecutor(*executor, report);
            }
        }
        for (const Value* link : pipe.links) {
            checkSection(link, quoted(link->key), "the link has no options", report);
        }
        for (const NodeSubject& node : pipe.nodes) {
            for (const char* key : {"node_opts_extra", "stream_opts_extra"}) {
                checkSection(node.value->member(key),
                             '"' + std::string(key) + '"',
                             "nothing is copied from it",
                             report);
            }
        }
    }
}

const Rule SECTION_IGNORED = {
    "section-ignored",
    Severity::Warning,
    "keys",
    "A section of options is not an object",
    "Executors, links, \"executor_opts\", \"thread_opts\", \"node_opts_extra\" and "
    "\"stream_opts_extra\" are objects. Anything else in their place reads as if it were not "
    "there.",
    "Nothing is copied from the section; nothing is logged.",
    "Write an object, or remove the member.",
    {R"({"pipe_0": {
  "link_0": "sync"
}})",
     R"({"pipe_0": {
  "link_0": {"mode": "sync"}
}})",
     {}},
    {},
    sectionIgnored};

// ---- link-mode-not-text -----------------------------------------------------

void linkModeNotText(const Subject& subject, Reporter* report) {
    for (const PipeSubject& pipe : subject.pipes()) {
        const Value* mode = pipe.value->member("default_mode_link");
        if (mode != nullptr && !mode->isString()) {
            report
                ->atValue(*mode,
                          std::string("\"default_mode_link\" is ") + toText(mode->kind) +
                              ", not a text: a device takes " + quoted(pipe.pipe->linkMode))
                .hint = "write the mode as a text, or remove the member";
        }
    }
}

const Rule LINK_MODE_NOT_TEXT = {
    "link-mode-not-text",
    Severity::Warning,
    "keys",
    "The default link mode of a pipe is not a text",
    "\"default_mode_link\" is a text. Where it is missing, empty or something else, the mode is "
    "'none'.",
    "The default link mode is 'none'.",
    "Write the mode as a text, or remove the member.",
    {R"({"pipe_0": {
  "default_mode_link": true
}})",
     R"({"pipe_0": {
  "default_mode_link": "sync"
}})",
     {}},
    {},
    linkModeNotText};

// ---- thread-count -----------------------------------------------------------

std::string threadsOf(const PipeSubject& pipe) {
    const int threads = pipe.pipe->threads;
    return "a device gets " + std::to_string(threads) + (threads == 1 ? " thread" : " threads");
}

// A number as it stands in the text, cut where it is long.
std::string asWritten(const Source& source, const Value& number) {
    const std::string text =
        quoted(std::string_view(source.text())
                   .substr(number.span.begin, number.span.end - number.span.begin));
    return text.substr(1, text.size() - 2);
}

bool isWholeAndPositive(double number) {
    return number >= 1 && number <= std::numeric_limits<int>::max() && std::trunc(number) == number;
}

// The members of "thread_opts" that are read as the number of threads.
std::vector<const Value*> threadCounts(const PipeSubject& pipe) {
    std::vector<const Value*> counts;
    const Value* options = pipe.value->member("thread_opts");
    if (options != nullptr && options->isObject()) {
        for (const Value* member : options->children) {
            if (isKnownKey(Level::ThreadOptions, member->key)) {
                counts.push_back(member);
            }
        }
    }
    return counts;
}

// Looks at a count beside the one that is used, if any is.
void checkUnused(const PipeSubject& pipe, const Value& count, const Value* used, Reporter* report) {
    if (used == nullptr) {
        report
            ->atValue(count,
                      quoted(count.key) + " is " + toText(count.kind) +
                          ", not a number: " + threadsOf(pipe))
            .hint = "write a whole number from 1 on, without quotes";
        return;
    }
    Finding& finding = report->atKey(
        count, quoted(count.key) + " stands beside " + quoted(used->key) + ": " + threadsOf(pipe));
    finding.related.push_back({"this one counts: the first number in key order", used->keySpan});
    finding.hint = "remove one of them";
}

void threadCount(const Subject& subject, Reporter* report) {
    for (const PipeSubject& pipe : subject.pipes()) {
        const std::vector<const Value*> counts = threadCounts(pipe);
        const auto number = std::find_if(
            counts.begin(), counts.end(), [](const Value* count) { return count->isNumber(); });
        const Value* used = number == counts.end() ? nullptr : *number;
        for (const Value* count : counts) {
            if (used == nullptr || count != used) {
                checkUnused(pipe, *count, used, report);
            } else if (!isWholeAndPositive(used->number)) {
                report
                    ->atValue(*used,
                              quoted(used->key) + " is " + asWritten(subject.source(), *used) +
                                  ": " + threadsOf(pipe))
                    .hint = "write a whole number from 1 on";
            }
        }
    }
}

const Rule THREAD_COUNT = {
    "thread-count",
    Severity::Warning,
    "keys",
    "The number of executor threads is not one whole number above 0",
    "The number of threads is the first number, in key order, among the members of \"thread_opts\" "
    "that are named \"exec_thread_num\" in any letter case. It is read as a 32-bit integer.",
    "A fraction is dropped, a number out of range becomes the nearest that fits, and everything "
    "else is passed over; without a number there are 0 threads.",
    "Write \"exec_thread_num\" once, with a whole number from 1 on.",
    {R"({"pipe_0": {
  "thread_opts": {"exec_thread_num": "4"}
}})",
     R"({"pipe_0": {
  "thread_opts": {"exec_thread_num": 4}
}})",
     {}},
    {},
    threadCount};

// ---- executor-without-options -----------------------------------------------

void executorWithoutOptions(const Subject& subject, Reporter* report) {
    for (const PipeSubject& pipe : subject.pipes()) {
        for (const Value* executor : pipe.executors) {
            if (executor->isObject() && executor->member("executor_opts") == nullptr &&
                !isMisplaced(*executor)) {
                report
                    ->atKey(*executor,
                            quoted(executor->key) +
                                " has no \"executor_opts\": a device copies nothing for it")
                    .hint = "add \"executor_opts\": {...} if it is meant to have options";
            }
        }
    }
}

const Rule EXECUTOR_WITHOUT_OPTIONS = {
    "executor-without-options",
    Severity::Note,
    "keys",
    "An executor has no options",
    "The options of an executor stand in its \"executor_opts\"; other members are not read.",
    "The executor counts, and its options are empty.",
    "Add \"executor_opts\" where the executor is meant to have options.",
    {R"({"pipe_0": {
  "executor_0": {}
}})",
     R"({"pipe_0": {
  "executor_0": {"executor_opts": {"priority": 10}}
}})",
     {}},
    {},
    executorWithoutOptions};

}  // namespace

std::vector<Rule> keyRules() {
    return {
        UNKNOWN_KEY, SECTION_IGNORED, LINK_MODE_NOT_TEXT, THREAD_COUNT, EXECUTOR_WITHOUT_OPTIONS};
}

}  // namespace qvgraph
