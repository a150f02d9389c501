#include "check/intended_members.h"

#include <algorithm>
#include <set>
#include <string_view>

#include "check/key_hints.h"
#include "check/stream_naming.h"
#include "survey/keys.h"
#include "survey/words.h"

namespace qvgraph {

namespace {

const char* const NODE_OPTIONS = "node_opts";
const char* const STREAM_OPTIONS = "stream_opts";

// ---- What is intended -------------------------------------------------------

IntendedMember renamed(const Value& member, const std::string& name, bool isReported) {
    return {{"probably a misspelling of " + name, member.keySpan},
            "rename",
            quoted(member.key),
            "to " + name,
            isReported};
}

IntendedMember moved(const Value& member, const char* section) {
    return {{"this has no effect here", member.keySpan},
            "move",
            quoted(member.key),
            "into " + inDoubleQuotes(section),
            true};
}

// Whether a member of a node has options that belong in a section.
bool holdsOptionsOf(const char* section, const Value& member) {
    const bool isForNode = std::string_view(section) == NODE_OPTIONS;
    return std::ranges::any_of(member.children, [isForNode](const Value* option) {
        return isForNode ? option->key == "node_name" : isStreamKey(option->key);
    });
}

// The members of a node that were intended as a section that is missing: objects
// under a different key, or in a different section.
std::vector<IntendedMember> intendedAsSection(const Node& node, const char* section) {
    std::vector<IntendedMember> intended;
    if (node.value->member(section) != nullptr) {
        return intended;
    }
    for (const Value* member : node.value->children) {
        if (!member->isObject() || isReservedKey(Level::Node, member->key)) {
            continue;
        }
        const bool isNearly = nearlyIn(Level::Node, member->key) == section &&
                              keyElsewhere(Level::Node, member->key) == nullptr;
        if (isNearly || holdsOptionsOf(section, *member)) {
            intended.push_back(
                {{"probably intended as " + inDoubleQuotes(section), member->keySpan},
                 "rename",
                 quoted(member->key),
                 "to " + inDoubleQuotes(section),
                 true});
        }
    }
    for (const OptionObject& each : node.objects) {
        const Value* object = each.value;
        const Value* inside = object == nullptr ? nullptr : object->member(section);
        if (inside != nullptr && inside->isObject()) {
            intended.push_back({{"this has no effect here", inside->span},
                                "move",
                                inDoubleQuotes(section),
                                "out of " + inDoubleQuotes(object->key),
                                true});
        }
    }
    return intended;
}

// The members with a prefix that are in the node itself or in an option object
// other than the section in which they belong.
std::vector<const Value*> elsewhere(const Node& node, const char* section, const char* prefix) {
    const Value* right = node.value->member(section);
    std::vector<const Value*> objects = {node.value};
    for (const OptionObject& object : node.objects) {
        objects.push_back(object.value);
    }
    std::vector<const Value*> members;
    for (const Value* object : objects) {
        if (object == nullptr || object == right) {
            continue;
        }
        for (const Value* member : object->children) {
            const bool isInSection = right != nullptr && right->member(member->key) != nullptr;
            if (hasPrefix(member->key, prefix) && !isInSection) {
                members.push_back(member);
            }
        }
    }
    return members;
}

void addMoved(const std::vector<const Value*>& members,
              const char* section,
              std::vector<IntendedMember>* intended) {
    for (const Value* member : members) {
        intended->push_back(moved(*member, section));
    }
}

// The members of "stream_opts" that resemble a key or its indexed family.
std::vector<const Value*> nearlyStreamOptions(const Node& node,
                                              const char* key,
                                              const char* family) {
    std::vector<const Value*> nearly;
    if (node.streamOptions() != nullptr) {
        for (const Value* member : node.streamOptions()->children) {
            const std::string name =
                isStreamKey(member->key) ? "" : nearlyIn(Level::StreamOptions, member->key);
            if (name == key || name == family) {
                nearly.push_back(member);
            }
        }
    }
    return nearly;
}

// The key that a member was intended to have: without an index for the only
// stream, otherwise with its own.
std::string intendedKey(const Value& member, bool isOnly, const char* key, const char* family) {
    const std::string suffix = nearestKey(Level::StreamOptions, member.key)->suffix;
    return isOnly ? key : family + (suffix.empty() ? "<k>" : suffix);
}

// Whether the rule about unknown keys reports a member of "stream_opts".
bool isUnknown(const Value& option) {
    return nearestKey(Level::StreamOptions, option.key, 2).has_value();
}

bool isSameFix(const IntendedMember& a, const IntendedMember& b) {
    return a.verb == b.verb && a.target == b.target;
}

}  // namespace

std::vector<IntendedMember> intendedAsNodeName(const Node& node) {
    std::vector<IntendedMember> intended = intendedAsSection(node, NODE_OPTIONS);
    if (!intended.empty()) {
        return intended;
    }
    if (node.nodeOptions() != nullptr) {
        for (const Value* member : node.nodeOptions()->children) {
            if (member->isString() && nearlyIn(Level::NodeOptions, member->key) == "node_name") {
                intended.push_back(renamed(*member, R"("node_name")", false));
            }
        }
    }
    for (const Value* member : elsewhere(node, NODE_OPTIONS, "node_name")) {
        if (member->key == "node_name") {
            intended.push_back(moved(*member, NODE_OPTIONS));
        }
    }
    return intended;
}

std::vector<IntendedMember> intendedAsNames(const Node& node, const Side& side) {
    std::vector<IntendedMember> intended = intendedAsSection(node, STREAM_OPTIONS);
    if (!intended.empty()) {
        return intended;
    }
    const auto nearly = nearlyStreamOptions(node, side.nameKey, side.nameFamily);
    const size_t number = node.registered ? side.managers : side.declared.size() + nearly.size();
    for (const Value* member : nearly) {
        const std::string key = intendedKey(*member, number == 1, side.nameKey, side.nameFamily);
        intended.push_back(renamed(*member, nameOfKey(side, key), isUnknown(*member)));
    }
    const auto names = elsewhere(node, STREAM_OPTIONS, side.nameKey);
    addMoved(names, STREAM_OPTIONS, &intended);
    if (!names.empty()) {
        addMoved(elsewhere(node, STREAM_OPTIONS, side.formatKey), STREAM_OPTIONS, &intended);
    }
    return intended;
}

std::map<std::string, std::vector<IntendedMember>, std::less<>> intendedAsFormats(
    const Node& node, const Side& side) {
    std::map<std::string, std::vector<IntendedMember>, std::less<>> intended;
    for (const Value* member : nearlyStreamOptions(node, side.formatKey, side.formatFamily)) {
        const std::string key =
            intendedKey(*member, side.managers == 1, side.formatKey, side.formatFamily);
        intended[key].push_back(renamed(*member, nameOfKey(side, key), isUnknown(*member)));
    }
    for (const Value* member : elsewhere(node, STREAM_OPTIONS, side.formatKey)) {
        intended[std::string(member->key)].push_back(moved(*member, STREAM_OPTIONS));
    }
    return intended;
}

void relate(const std::vector<IntendedMember>& intended, Finding* finding) {
    std::vector<std::string> fixes;
    std::set<size_t> begins;
    for (size_t i = 0; i < intended.size();) {
        const IntendedMember& first = intended[i];
        std::vector<std::string> keys;
        for (; i < intended.size() && isSameFix(intended[i], first); ++i) {
            if (begins.insert(intended[i].location.span.begin).second) {
                finding->related.push_back(intended[i].location);
                keys.push_back(intended[i].key);
            }
        }
        if (!keys.empty()) {
            fixes.push_back(first.verb + ' ' + listOf(keys) + ' ' + first.target);
        }
    }
    if (!fixes.empty()) {
        finding->hint = listOf(fixes, 3);
    }
}

}  // namespace qvgraph
