#include "check/pipe_indexes.h"

#include <algorithm>
#include <optional>
#include <set>

#include "check/key_hints.h"
#include "survey/keys.h"

namespace qvgraph {

namespace {

// Whether a value has members that belong in a pipe.
bool looksLikePipe(const Value& value) {
    return value.isObject() &&
           std::any_of(value.children.begin(), value.children.end(), [](const Value* member) {
               return isReservedKey(Level::Pipe, member->key) &&
                      keyElsewhere(Level::Pipe, member->key) == nullptr;
           });
}

bool isIntendedAsPipe(const Value& member) {
    return keyElsewhere(Level::Root, member.key) == nullptr &&
           (hasPrefix(member.key, "pipe_") || nearestKey(Level::Root, member.key) ||
            looksLikePipe(member));
}

// The number in a key that resembles a pipe's: 0 for 'pipe_00' and 'Pipe_0'.
std::optional<size_t> intendedIndex(std::string_view key) {
    const auto nearest = nearestKey(Level::Root, key);
    if (!nearest || nearest->suffix.empty() || nearest->suffix.size() > 9) {
        return std::nullopt;
    }
    return std::stoul(nearest->suffix);
}

}  // namespace

Members rootMembers(const Model& model) {
    const Value* root = model.source().root();
    return root == nullptr || !root->isObject() ? Members() : Members(root->children);
}

PipesByIndex addressablePipes(const Model& model) {
    PipesByIndex pipes;
    for (const Pipe& pipe : model.pipes()) {
        pipes.emplace(static_cast<size_t>(pipe.index), pipe.value);
    }
    return pipes;
}

std::vector<const Value*> unaddressableMembers(const Model& model) {
    std::set<const Value*> pipes;
    for (const Pipe& pipe : model.pipes()) {
        pipes.insert(pipe.value);
    }
    std::vector<const Value*> members;
    for (const Value* member : rootMembers(model)) {
        if (pipes.count(member) == 0) {
            members.push_back(member);
        }
    }
    return members;
}

std::string quotedPipeKey(size_t index) {
    return "'pipe_" + std::to_string(index) + "'";
}

PipesByIndex intendedPipes(const Model& model) {
    PipesByIndex pipes = addressablePipes(model);
    std::vector<const Value*> intended;
    for (const Value* member : unaddressableMembers(model)) {
        if (isIntendedAsPipe(*member)) {
            intended.push_back(member);
        }
    }
    const size_t count = pipes.size() + intended.size();
    std::vector<const Value*> unnumbered;
    for (const Value* member : intended) {
        const size_t number = intendedIndex(member->key).value_or(count);
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

}  // namespace qvgraph
