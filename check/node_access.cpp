#include "check/node_access.h"

#include <algorithm>
#include <set>
#include <string_view>

#include "check/key_hints.h"
#include "survey/keys.h"

namespace qvgraph {

namespace {

const char* const NODE_OPTIONS = "node_opts";
const char* const STREAM_OPTIONS = "stream_opts";

// ---- what is meant ------------------------------------------------------------

// The known key that another key is nearly; "" for none.
std::string nearlyIn(Level level, const std::string& key) {
    const auto near = isKnownKey(level, key) ? std::nullopt : nearestKey(level, key);
    return near ? near->known->name : "";
}

MeantMember renamed(const Value& member, const std::string& name, bool isReported) {
    return {{"this is nearly " + name, member.keySpan},
            "rename",
            quoted(member.key),
            "to " + name,
            isReported};
}

MeantMember moved(const Value& member, const char* section) {
    return {{"this does not count here", member.keySpan},
            "move",
            quoted(member.key),
            "to " + inDoubleQuotes(section),
            true};
}

// Whether a member of a node has the options that belong into a section.
bool holdsOptionsOf(const char* section, const Value& member) {
    const bool isForNames = std::string_view(section) == NODE_OPTIONS;
    return std::any_of(
        member.children.begin(), member.children.end(), [isForNames](const Value* option) {
            return isForNames ? option->key == "node_name" : isStreamKey(option->key);
        });
}

// The sections of a node that were meant as one that is not there: under another
// key, or within another.
std::vector<MeantMember> meantAsSection(const NodeSubject& node, const char* section) {
    std::vector<MeantMember> meant;
    if (node.value->member(section) != nullptr) {
        return meant;
    }
    for (const Value* member : node.value->children) {
        if (!member->isObject() || isKnownKey(Level::Node, member->key)) {
            continue;
        }
        const bool isNearly = nearlyIn(Level::Node, member->key) == section &&
                              keyElsewhere(Level::Node, member->key) == nullptr;
        if (isNearly || holdsOptionsOf(section, *member)) {
            meant.push_back({{"this is probably meant", member->keySpan},
                             "rename",
                             quoted(member->key),
                             "to " + inDoubleQuotes(section),
                             true});
        }
    }
    for (const Value* object : node.objects) {
        const Value* inside = object == nullptr ? nullptr : object->member(section);
        if (inside != nullptr && inside->isObject()) {
            meant.push_back({{"this does not count here", inside->span},
                             "move",
                             inDoubleQuotes(section),
                             "out of " + inDoubleQuotes(object->key),
                             true});
        }
    }
    return meant;
}

// The members under a key that begins so, in a node itself or in an option object
// which is not the section for them.
std::vector<const Value*> elsewhere(const NodeSubject& node,
                                    const char* section,
                                    const char* prefix) {
    const Value* right = node.value->member(section);
    std::vector<const Value*> objects = {node.value};
    objects.insert(objects.end(), node.objects.begin(), node.objects.end());
    std::vector<const Value*> members;
    for (const Value* object : objects) {
        if (object == nullptr || object == right) {
            continue;
        }
        for (const Value* member : object->children) {
            const bool isThere = right != nullptr && right->member(member->key) != nullptr;
            if (hasPrefix(member->key, prefix) && !isThere) {
                members.push_back(member);
            }
        }
    }
    return members;
}

void addMoved(const std::vector<const Value*>& members,
              const char* section,
              std::vector<MeantMember>* meant) {
    for (const Value* member : members) {
        meant->push_back(moved(*member, section));
    }
}

// Members of "stream_opts" that are nearly a key or of its family.
std::vector<const Value*> nearlyStreamOptions(const NodeSubject& node,
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

// The key that a member was meant to have: of the only stream, or with its
// index.
std::string meantKey(const Value& member, bool isOnly, const char* key, const char* family) {
    const std::string suffix = nearestKey(Level::StreamOptions, member.key)->suffix;
    return isOnly ? key : family + (suffix.empty() ? "<k>" : suffix);
}

// Whether the rule about unknown keys reports a member of "stream_opts".
bool isUnknown(const Value& option) {
    return nearestKey(Level::StreamOptions, option.key, 2).has_value();
}

bool isSameFix(const MeantMember& a, const MeantMember& b) {
    return a.verb == b.verb && a.target == b.target;
}

}  // namespace

bool isStreamKey(const std::string& key) {
    return hasPrefix(key, "stream_input") || hasPrefix(key, "stream_output");
}

bool isNearlyStreamKey(const std::string& key) {
    return !isStreamKey(key) && isStreamKey(nearlyIn(Level::StreamOptions, key));
}

bool isNameless(const DeclaredEnd& end) {
    return !end.name && end.place == nullptr;
}

Naming namingOf(const NodeSubject& node, const Side& side) {
    const size_t declared = side.declared.size();
    if (side.managers < declared) {
        return Naming::TooMany;
    }
    if (declared > 1 && side.managers == declared && side.nameMembers.size() < declared) {
        return Naming::Mixed;
    }
    if (node.isReady() || std::none_of(side.ends.begin(), side.ends.end(), isNameless)) {
        return Naming::Right;
    }
    return side.managers > declared ? Naming::TooFew : Naming::SingleIndexed;
}

std::string freeNameKey(const Side& side) {
    std::set<std::string> taken;
    for (const Value* member : side.nameMembers) {
        taken.insert(member->key);
    }
    int index = 0;
    while (taken.count(indexedKey(side.nameFamily, index)) != 0) {
        ++index;
    }
    return indexedKey(side.nameFamily, index);
}

std::vector<MeantMember> meantAsNodeName(const NodeSubject& node) {
    std::vector<MeantMember> meant = meantAsSection(node, NODE_OPTIONS);
    if (!meant.empty()) {
        return meant;
    }
    if (node.nodeOptions() != nullptr) {
        for (const Value* member : node.nodeOptions()->children) {
            if (member->isString() && nearlyIn(Level::NodeOptions, member->key) == "node_name") {
                meant.push_back(renamed(*member, R"("node_name")", false));
            }
        }
    }
    for (const Value* member : elsewhere(node, NODE_OPTIONS, "node_name")) {
        if (member->key == "node_name") {
            meant.push_back(moved(*member, NODE_OPTIONS));
        }
    }
    return meant;
}

std::vector<MeantMember> meantAsNames(const NodeSubject& node, const Side& side) {
    std::vector<MeantMember> meant = meantAsSection(node, STREAM_OPTIONS);
    if (!meant.empty()) {
        return meant;
    }
    const auto nearly = nearlyStreamOptions(node, side.nameKey, side.nameFamily);
    const size_t number =
        node.node->registered ? side.managers : side.declared.size() + nearly.size();
    for (const Value* member : nearly) {
        const std::string key = meantKey(*member, number == 1, side.nameKey, side.nameFamily);
        meant.push_back(renamed(*member, nameOfKey(side, key), isUnknown(*member)));
    }
    const auto names = elsewhere(node, STREAM_OPTIONS, side.nameKey);
    addMoved(names, STREAM_OPTIONS, &meant);
    if (!names.empty()) {
        addMoved(elsewhere(node, STREAM_OPTIONS, side.formatKey), STREAM_OPTIONS, &meant);
    }
    return meant;
}

std::map<std::string, std::vector<MeantMember>> meantAsFormats(const NodeSubject& node,
                                                               const Side& side) {
    std::map<std::string, std::vector<MeantMember>> meant;
    for (const Value* member : nearlyStreamOptions(node, side.formatKey, side.formatFamily)) {
        const std::string key =
            meantKey(*member, side.managers == 1, side.formatKey, side.formatFamily);
        meant[key].push_back(renamed(*member, nameOfKey(side, key), isUnknown(*member)));
    }
    for (const Value* member : elsewhere(node, STREAM_OPTIONS, side.formatKey)) {
        meant[member->key].push_back(moved(*member, STREAM_OPTIONS));
    }
    return meant;
}

void relate(const std::vector<MeantMember>& meant, Finding* finding) {
    std::vector<std::string> fixes;
    std::set<size_t> places;
    for (size_t i = 0; i < meant.size();) {
        const MeantMember& first = meant[i];
        std::vector<std::string> keys;
        for (; i < meant.size() && isSameFix(meant[i], first); ++i) {
            if (places.insert(meant[i].place.span.begin).second) {
                finding->related.push_back(meant[i].place);
                keys.push_back(meant[i].key);
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

std::string inDoubleQuotes(const std::string& key) {
    return '"' + key + '"';
}

std::string nameOfKey(const Side& side, const std::string& key) {
    return key == side.nameKey || key == side.formatKey ? inDoubleQuotes(key) : quoted(key);
}

std::string classOf(const NodeSubject& node) {
    return "the class " + quoted(node.node->className);
}

}  // namespace qvgraph
