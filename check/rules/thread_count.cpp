#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

#include "check/key_hints.h"
#include "check/rules.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

// "the device uses a thread count of 4".
std::string outcomeOf(const Pipe& pipe) {
    return "the device uses a thread count of " + std::to_string(pipe.threads);
}

// A number as it is written in the text, cut if it is long.
std::string asWritten(const Source& source, const Value& number) {
    const std::string text = quoted(source.text(number.span));
    return text.substr(1, text.size() - 2);
}

bool isPositiveInteger(double number) {
    return number >= 1 && number <= std::numeric_limits<int>::max() && std::trunc(number) == number;
}

// The members of "thread_opts" that can set the thread count.
std::vector<const Value*> threadCounts(const Pipe& pipe) {
    std::vector<const Value*> counts;
    const Value* options = pipe.value->member("thread_opts");
    if (options != nullptr && options->isObject()) {
        std::copy_if(
            options->children.begin(),
            options->children.end(),
            std::back_inserter(counts),
            [](const Value* member) { return isReservedKey(Level::ThreadOptions, member->key); });
    }
    return counts;
}

void reportUnused(const Pipe& pipe, const Value& count, const Value& used, Reporter* report) {
    Finding& finding = report->atKey(
        count,
        quoted(count.key) + " is overridden by " + quoted(used.key) + ": " + outcomeOf(pipe));
    finding.related.push_back({"takes effect: the first number in key order", used.keySpan});
    finding.hint = "remove one of them";
}

void checkCount(const Model& model, const Pipe& pipe, const Value& count, Reporter* report) {
    if (!count.isNumber()) {
        report->atWrongType(count, quoted(count.key), "a number", outcomeOf(pipe)).hint =
            "write a whole number of at least 1, without quotes";
    } else if (!isPositiveInteger(count.number)) {
        report
            ->atValue(count,
                      quoted(count.key) + " is " + asWritten(model.source(), count) +
                          ", not a positive 32-bit integer: " + outcomeOf(pipe))
            .hint = "write a whole number of at least 1";
    }
}

void checkPipe(const Model& model, const Pipe& pipe, Reporter* report) {
    const std::vector<const Value*> counts = threadCounts(pipe);
    const auto used = std::find_if(
        counts.begin(), counts.end(), [](const Value* count) { return count->isNumber(); });
    for (const Value* count : counts) {
        if (used != counts.end() && count != *used) {
            reportUnused(pipe, *count, **used, report);
        } else {
            checkCount(model, pipe, *count, report);
        }
    }
}

void threadCount(const Model& model, Reporter* report) {
    for (const Pipe& pipe : model.pipes()) {
        checkPipe(model, pipe, report);
    }
}

}  // namespace

constinit const Rule THREAD_COUNT = {
    .code = "thread-count",
    .severity = Severity::Warning,
    .family = "keys",
    .title = "The thread count of a pipe is not one positive integer",
    .explanation =
        "The thread count is the first number, in key order, among the members of "
        "\"thread_opts\" whose key is \"exec_thread_num\" in any letter case. It is read as a "
        "32-bit integer.",
    .device =
        "A fraction is truncated, a number that is out of range becomes the nearest integer that "
        "fits, and a value of any other type is ignored. Without a number, the thread count is "
        "0.",
    .fix = "Write \"exec_thread_num\" once, with a whole number of at least 1.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "thread_opts": {"exec_thread_num": "4"}
}})",
            .fixed = R"({"pipe_0": {
  "thread_opts": {"exec_thread_num": 4}
}})",
        },
    .find = threadCount,
};

}  // namespace qvgraph
