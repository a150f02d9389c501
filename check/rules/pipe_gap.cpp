#include <string>
#include <vector>

#include "check/pipe_indexes.h"
#include "check/rules.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

// A run of indexes without a pipe.
struct Gap {
    size_t first = 0;
    size_t last = 0;
    const Value* next = nullptr;  // the pipe after the gap
    size_t position = 0;          // of that pipe among all pipes
};

// What the device does about all of the gaps.
std::string outcomeOfGaps(const Model& model) {
    const size_t queried = rootMembers(model).size();
    std::vector<std::string> unreachable;
    for (const auto& [index, pipe] : addressablePipes(model)) {
        if (index >= queried) {
            unreachable.push_back(quoted(pipe->key));
        }
    }
    if (unreachable.empty()) {
        return "the device finds no nodes there";
    }
    return (queried == 1 ? "the device queries only index 0"
                         : "the device queries indexes 0 to " + std::to_string(queried - 1)) +
           ", and never reads " + listOf(unreachable);
}

// "index 1 has no pipe".
std::string describe(const Gap& gap) {
    if (gap.first == gap.last) {
        return "index " + std::to_string(gap.first) + " has no pipe";
    }
    return "indexes " + std::to_string(gap.first) + " to " + std::to_string(gap.last) +
           " have no pipe";
}

// The gaps before addressable pipes.
std::vector<Gap> gapsIn(const PipesByIndex& pipes, const PipesByIndex& addressable) {
    std::vector<Gap> gaps;
    size_t expected = 0;
    size_t position = 0;
    for (const auto& [index, pipe] : pipes) {
        if (expected < index && expected < pipes.size() && addressable.count(index) != 0) {
            gaps.push_back({expected, index - 1, pipe, position});
        }
        expected = index + 1;
        ++position;
    }
    return gaps;
}

void pipeGap(const Model& model, Reporter* report) {
    const PipesByIndex pipes = intendedPipes(model);
    const std::string outcome = outcomeOfGaps(model);
    for (const Gap& gap : gapsIn(pipes, addressablePipes(model))) {
        const bool isLast = gap.position + 1 == pipes.size();
        report->atKey(*gap.next, describe(gap) + ": " + outcome).hint =
            "rename " + quoted(gap.next->key) + " to " + quotedPipeKey(gap.position) +
            (isLast ? "" : ", and renumber the pipes after it");
    }
}

}  // namespace

constinit const Rule PIPE_GAP = {
    .code = "pipe-gap",
    .severity = Severity::Error,
    .family = "pipes",
    .title = "An index below the number of pipes has no pipe",
    .explanation =
        "The device queries as many pipes as the root has members, by index from 0. If an index "
        "has no pipe, the last pipe is out of reach.",
    .device =
        "An index without a pipe reads as an empty pipe. The device never queries a pipe whose "
        "index is not below the number of pipes.",
    .fix = "Number the pipes from 0 without gaps.",
    .example =
        {
            .wrong = R"({
  "pipe_0": {"default_mode_link": "sync"},
  "pipe_2": {"default_mode_link": "async"}
})",
            .fixed = R"({
  "pipe_0": {"default_mode_link": "sync"},
  "pipe_1": {"default_mode_link": "async"}
})",
        },
    .find = pipeGap,
};

}  // namespace qvgraph
