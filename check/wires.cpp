#include "check/wires.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "check/node_access.h"
#include "check/words.h"
#include "survey/keys.h"

namespace qvgraph {

namespace {

// How many streams without a producer get the name that is probably meant:
// looking for it takes a comparison with every other stream.
const size_t MOST_GUESSES = 50;

class WireTable {
public:
    void add(const WireEnd& end, std::vector<WireEnd> Wire::*ends) {
        if (!end.end->name || end.end->name->empty()) {
            return;
        }
        const auto [found, isNew] = mIndexes.emplace(*end.end->name, mWires.size());
        if (isNew) {
            mWires.emplace_back().name = *end.end->name;
        }
        (mWires[found->second].*ends).push_back(end);
    }

    // Null for none.
    Wire* find(const std::string& name) {
        const auto found = mIndexes.find(name);
        return found == mIndexes.end() ? nullptr : &mWires[found->second];
    }

    std::vector<Wire>& wires() { return mWires; }

private:
    std::vector<Wire> mWires;
    std::unordered_map<std::string, size_t> mIndexes;
};

void addEnds(const PipeSubject& pipe, WireTable* table) {
    for (size_t i = 0; i < pipe.nodes.size(); ++i) {
        const NodeSubject& node = pipe.nodes[i];
        for (const DeclaredEnd& end : node.inputs.streams) {
            table->add({i, &end, &node.inputs}, &Wire::consumers);
        }
        for (const DeclaredEnd& end : node.outputs.streams) {
            table->add({i, &end, &node.outputs}, &Wire::producers);
        }
    }
}

// ---- what else may be an end ------------------------------------------------

void markNamed(const Value& text, WireTable* table) {
    if (Wire* wire = text.isString() ? table->find(text.text) : nullptr) {
        wire->isUncertain = true;
    }
}

// The streams that texts of a value name, of its members and so on.
void markAllNamed(const Value& value, int depth, WireTable* table) {
    markNamed(value, table);
    for (const Value* child : value.children) {
        if (depth > 0) {
            markAllNamed(*child, depth - 1, table);
        }
    }
}

// The keys that name the streams of a node. What stands under one of them is a
// name, or it is overridden by one.
std::set<std::string_view> namingKeysOf(const NodeSubject& node) {
    std::set<std::string_view> keys;
    for (const Side* side : {&node.inputs, &node.outputs}) {
        for (const DeclaredEnd& end : side->streams) {
            if (end.name) {
                keys.insert(end.key);
            }
        }
    }
    return keys;
}

// Whether an option, which names no stream, was probably meant to.
bool mayName(const Value& option) {
    return isStreamKey(option.key) || isNearlyStreamKey(option.key);
}

const int MOST_LEVELS = 3;  // of a node: its sections, and their options

void markNamedIn(const NodeSubject& node, WireTable* table) {
    const std::set<std::string_view> keys = namingKeysOf(node);
    for (const Value* member : node.value->children) {
        const bool isOptions =
            std::find(node.objects.begin(), node.objects.end(), member) != node.objects.end();
        if (!isOptions) {
            markAllNamed(*member, MOST_LEVELS, table);
            continue;
        }
        for (const Value* option : member->children) {
            const bool isStream = option->isString() && table->find(option->text) != nullptr;
            if (option->isObject() ||
                (isStream && keys.count(option->key) == 0 && mayName(*option))) {
                markAllNamed(*option, MOST_LEVELS, table);
            }
        }
    }
}

// An executor's, a link's and so on: no option of theirs is an object, so that
// it was meant to stand elsewhere.
void markNamedInObjects(const Value& member, WireTable* table) {
    for (const Value* option : member.children) {
        if (option->isObject()) {
            markAllNamed(*option, MOST_LEVELS, table);
        }
    }
}

// What is not where it has a meaning may have been meant to name streams.
void markMisplaced(const PipeSubject& pipe, WireTable* table) {
    for (const Value* member : pipe.value->children) {
        const bool isNode = hasPrefix(member->key, "node_");
        const bool isKnown = hasPrefix(member->key, "executor_") ||
                             hasPrefix(member->key, "link_") || member->key == "thread_opts" ||
                             member->key == "default_mode_link";
        if (isKnown) {
            markNamedInObjects(*member, table);
        } else if (!isNode) {
            markAllNamed(*member, MOST_LEVELS, table);
        }
    }
    for (const NodeSubject& node : pipe.nodes) {
        markNamedIn(node, table);
    }
}

// ---- what is meant ------------------------------------------------------------

std::string withoutDigits(std::string name) {
    name.erase(
        std::remove_if(name.begin(), name.end(), [](char c) { return c >= '0' && c <= '9'; }),
        name.end());
    return name;
}

// The streams that are given, each with its name without digits; first those
// that nobody takes.
std::vector<std::pair<std::string, std::string>> givenIn(const std::vector<Wire>& wires) {
    std::vector<std::pair<std::string, std::string>> given;
    for (const bool taken : {false, true}) {
        for (const Wire& wire : wires) {
            if (!wire.producers.empty() && wire.consumers.empty() != taken) {
                given.emplace_back(wire.name, withoutDigits(wire.name));
            }
        }
    }
    return given;
}

// The stream that is probably meant; "" for none. 'left_1' is no mistyped
// 'left_0', and nearly every short name is near another.
std::string meantBy(const std::string& name,
                    const std::vector<std::pair<std::string, std::string>>& given) {
    std::vector<std::string> candidates;
    const std::string plain = withoutDigits(name);
    for (const auto& [other, otherPlain] : given) {
        if (otherPlain != plain && name.size() > 2) {
            candidates.push_back(other);
        }
    }
    return nearestTo(name, candidates);
}

void guessMeant(WireTable* table) {
    const auto given = givenIn(table->wires());
    size_t guesses = 0;
    for (Wire& wire : table->wires()) {
        if (!wire.producers.empty() || wire.isUncertain || ++guesses > MOST_GUESSES) {
            continue;
        }
        wire.meant = meantBy(wire.name, given);
        if (Wire* meant = table->find(wire.meant)) {
            meant->isMeant = true;
        }
    }
}

// Nodes that do not say which streams they have may have any.
void markUnknown(const PipeSubject& pipe, WireTable* table) {
    // One of two that give the same stream was probably meant to give another.
    const bool givesTwice = std::any_of(table->wires().begin(),
                                        table->wires().end(),
                                        [](const Wire& wire) { return wire.producers.size() > 1; });
    const bool knowsTakers = knowsEvery(&NodeSubject::inputs, pipe);
    const bool knowsGivers = knowsEvery(&NodeSubject::outputs, pipe);
    for (Wire& wire : table->wires()) {
        const bool mayBeGiven =
            wire.producers.empty() && wire.meant.empty() && (givesTwice || !knowsGivers);
        const bool mayBeTaken = wire.consumers.empty() && !knowsTakers;
        wire.isUncertain = wire.isUncertain || mayBeGiven || mayBeTaken;
    }
}

bool isNamed(const DeclaredEnd& end) {
    return end.name && !end.name->empty();
}

}  // namespace

std::vector<Wire> wiresOf(const PipeSubject& pipe) {
    WireTable table;
    addEnds(pipe, &table);
    markMisplaced(pipe, &table);
    guessMeant(&table);
    markUnknown(pipe, &table);
    return std::move(table.wires());
}

bool knowsEvery(Side NodeSubject::*side, const PipeSubject& pipe) {
    return std::all_of(pipe.nodes.begin(), pipe.nodes.end(), [side](const NodeSubject& node) {
        const std::vector<DeclaredEnd>& ends = (node.*side).streams;
        return hasStreams(node) && !(node.*side).hasSpareFormat() &&
               std::all_of(ends.begin(), ends.end(), isNamed);
    });
}

const Value& placeOf(const PipeSubject& pipe, const WireEnd& end) {
    return end.end->place != nullptr ? *end.end->place : *pipe.nodes[end.node].value;
}

}  // namespace qvgraph
