// Whether indexes lead to the pipes, and whether the sections that pipes and
// nodes are made of are objects.
#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "check/key_hints.h"
#include "check/rule.h"
#include "check/words.h"
#include "survey/keys.h"

namespace qvgraph {

namespace {

using Members = std::vector<const Value*>;
using PipesByIndex = std::map<size_t, const Value*>;

// The members of the root that count; none where the root is no object.
Members rootMembers(const Subject& subject) {
    const Value* root = subject.source().root();
    return root == nullptr || !root->isObject() ? Members() : root->children;
}

// The members of the root that an index leads to.
PipesByIndex addressablePipes(const Subject& subject) {
    PipesByIndex pipes;
    for (const Pipe& pipe : subject.survey().pipes) {
        pipes.emplace(static_cast<size_t>(pipe.index), subject.source().root()->member(*pipe.key));
    }
    return pipes;
}

// Those that none leads to.
Members otherMembers(const Subject& subject) {
    std::set<const Value*> pipes;
    for (const auto& [index, pipe] : addressablePipes(subject)) {
        pipes.insert(pipe);
    }
    Members others = rootMembers(subject);
    const auto isPipe = [&](const Value* member) { return pipes.count(member) != 0; };
    others.erase(std::remove_if(others.begin(), others.end(), isPipe), others.end());
    return others;
}

std::string pipeKey(size_t index) {
    return "'pipe_" + std::to_string(index) + "'";
}

// Whether a value has members that belong into a pipe.
bool looksLikePipe(const Value& value) {
    return value.isObject() &&
           std::any_of(value.children.begin(), value.children.end(), [](const Value* member) {
               return isKnownKey(Level::Pipe, member->key) &&
                      keyElsewhere(Level::Pipe, member->key) == nullptr;
           });
}

bool isMeantAsPipe(const Value& member) {
    return keyElsewhere(Level::Root, member.key) == nullptr &&
           (hasPrefix(member.key, "pipe_") || nearestKey(Level::Root, member.key) ||
            looksLikePipe(member));
}

// The number that a key nearly has, 0 for 'pipe_00' and 'Pipe_0'.
std::optional<size_t> numberIn(const std::string& key) {
    const auto near = nearestKey(Level::Root, key);
    if (!near || near->suffix.empty() || near->suffix.size() > 9) {
        return std::nullopt;
    }
    return std::stoul(near->suffix);
}

// The pipes, with those that no index leads to at the indexes that they should
// have: their own numbers where those are free and below the number of pipes,
// otherwise the first that are free.
PipesByIndex intendedPipes(const Subject& subject) {
    PipesByIndex pipes = addressablePipes(subject);
    Members meant;
    for (const Value* member : otherMembers(subject)) {
        if (isMeantAsPipe(*member)) {
            meant.push_back(member);
        }
    }
    const size_t count = pipes.size() + meant.size();
    Members unnumbered;
    for (const Value* member : meant) {
        const size_t number = numberIn(member->key).value_or(count);
        if (number >= count || !pipes.emplace(number, member).second) {
            unnumbered.push_back(member);
        }
    }
    size_t next = 0;
    for (const Value* member : unnumbered) {
        while (!pipes.emplace(next, member).second) {
            ++next;
        }
    }
    return pipes;
}

// ---- pipe-not-addressable ---------------------------------------------------

void pipeNotAddressable(const Subject& subject, Reporter* report) {
    std::map<const Value*, size_t> intended;
    for (const auto& [index, member] : intendedPipes(subject)) {
        intended.emplace(member, index);
    }
    for (const Value* member : otherMembers(subject)) {
        const auto index = intended.find(member);
        report->atKey(*member, quoted(member->key) + " counts as a pipe, but no index leads to it")
            .hint = index != intended.end() ? "rename it to " + pipeKey(index->second)
                                            : hintForUnknown(Level::Root, *member);
    }
}

const Rule PIPE_NOT_ADDRESSABLE = {
    "pipe-not-addressable",
    Severity::Error,
    "pipes",
    "A member of the root is not a pipe that an index leads to",
    "Every member of the root counts as a pipe, but an index leads to the key 'pipe_<p>' alone, "
    "with the index in decimal: not to 'pipe_00', 'Pipe_0' or 'pipe_-1'.",
    "The member is never read, and a device asks for one pipe more than there are.",
    "Rename the member, or move it to where it belongs.",
    {R"({
  "pipe_00": {"default_mode_link": "sync"}
})",
     R"({
  "pipe_0": {"default_mode_link": "sync"}
})",
     {}},
    {},
    pipeNotAddressable};

// ---- pipe-gap ---------------------------------------------------------------

// A run of indexes without a pipe, and the pipe behind it.
struct Gap {
    size_t first = 0;
    size_t last = 0;
    const Value* behind = nullptr;
    size_t position = 0;  // of that pipe among all
};

// What becomes of the empty indexes, as one device sees all of them.
std::string outcomeOfGaps(const Subject& subject) {
    const size_t asked = rootMembers(subject).size();
    std::vector<std::string> outOfReach;
    for (const auto& [index, pipe] : addressablePipes(subject)) {
        if (index >= asked) {
            outOfReach.push_back(quoted(pipe->key));
        }
    }
    if (outOfReach.empty()) {
        return "a device finds nothing there";
    }
    return (asked == 1 ? "a device asks for the index 0 alone"
                       : "a device asks for the indexes 0 to " + std::to_string(asked - 1)) +
           ", and never for " + listOf(outOfReach);
}

std::string indexesOf(const Gap& gap) {
    if (gap.first == gap.last) {
        return "the index " + std::to_string(gap.first) + " has no pipe";
    }
    return "the indexes " + std::to_string(gap.first) + " to " + std::to_string(gap.last) +
           " have no pipe";
}

// The gaps before pipes that an index leads to.
std::vector<Gap> gapsIn(const PipesByIndex& pipes, const PipesByIndex& addressable) {
    std::vector<Gap> gaps;
    size_t next = 0;
    size_t position = 0;
    for (const auto& [index, pipe] : pipes) {
        if (next < index && next < pipes.size() && addressable.count(index) != 0) {
            gaps.push_back({next, index - 1, pipe, position});
        }
        next = index + 1;
        ++position;
    }
    return gaps;
}

void pipeGap(const Subject& subject, Reporter* report) {
    const PipesByIndex pipes = intendedPipes(subject);
    const std::string outcome = outcomeOfGaps(subject);
    for (const Gap& gap : gapsIn(pipes, addressablePipes(subject))) {
        const bool isLast = gap.position + 1 == pipes.size();
        report->atKey(*gap.behind, indexesOf(gap) + ": " + outcome).hint =
            "rename " + quoted(gap.behind->key) + " to " + pipeKey(gap.position) +
            (isLast ? "" : ", and those behind it accordingly");
    }
}

const Rule PIPE_GAP = {
    "pipe-gap",
    Severity::Error,
    "pipes",
    "An index below the number of pipes has no pipe",
    "A device asks for as many pipes as the root has members, by the indexes from 0 on. Where an "
    "index is left out, the last pipe is out of reach.",
    "The empty index reads as a pipe without nodes, and a pipe whose index is not below the "
    "number of pipes is never asked for.",
    "Number the pipes from 0 without gaps.",
    {R"({
  "pipe_0": {"default_mode_link": "sync"},
  "pipe_2": {"default_mode_link": "async"}
})",
     R"({
  "pipe_0": {"default_mode_link": "sync"},
  "pipe_1": {"default_mode_link": "async"}
})",
     {}},
    {},
    pipeGap};

// ---- section-not-object -----------------------------------------------------

void checkSection(const Value& section,
                  const std::string& name,
                  const char* outcome,
                  Reporter* report) {
    if (!section.isObject()) {
        report
            ->atValue(section, name + " is " + toText(section.kind) + ", not an object: " + outcome)
            .hint = "write an object, {...}";
    }
}

void checkNode(const Value& node, Reporter* report) {
    if (keyElsewhere(Level::Pipe, node.key) != nullptr) {
        return;  // "node_opts" in a pipe, which is no node
    }
    checkSection(node, quoted(node.key), "no node is made of it", report);
    if (const Value* options = node.member("node_opts")) {
        checkSection(*options, "\"node_opts\"", "the node has no name, and is not made", report);
    }
    if (const Value* options = node.member("stream_opts")) {
        checkSection(*options, "\"stream_opts\"", "the node has no streams", report);
    }
}

void sectionNotObject(const Subject& subject, Reporter* report) {
    for (const auto& [index, pipe] : addressablePipes(subject)) {
        checkSection(*pipe, quoted(pipe->key), "it reads as an empty pipe", report);
    }
    for (const PipeSubject& pipe : subject.pipes()) {
        for (const NodeSubject& node : pipe.nodes) {
            checkNode(*node.value, report);
        }
    }
}

const Rule SECTION_NOT_OBJECT = {
    "section-not-object",
    Severity::Error,
    "pipes",
    "A pipe, a node or one of its two main sections is not an object",
    "Pipes, nodes, \"node_opts\" and \"stream_opts\" are objects. Anything else in their place "
    "reads as if it were not there.",
    "A pipe is empty, a node is not made, or it has no streams.",
    "Write an object.",
    {R"({"pipe_0": {
  "node_0": ["Camera"]
}})",
     R"({"pipe_0": {
  "node_0": {"node_opts": {"node_name": "Camera"},
             "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}},
  "node_1": {"node_opts": {"node_name": "Display"},
             "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}}
}})",
     {}},
    {"node-name",
     "no-streams",
     "stream-keys-mixed",
     "single-stream-key",
     "stream-name-missing",
     "stream-format-missing",
     "stream-count",
     "disconnected"},
    sectionNotObject};

}  // namespace

std::vector<Rule> pipeRules() {
    return {PIPE_NOT_ADDRESSABLE, PIPE_GAP, SECTION_NOT_OBJECT};
}

}  // namespace qvgraph
