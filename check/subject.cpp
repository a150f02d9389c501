#include "check/subject.h"

#include <algorithm>
#include <set>
#include <string_view>

#include "check/key_hints.h"
#include "check/stored_option.h"
#include "check/wires.h"
#include "survey/keys.h"

namespace qvgraph {

namespace {

// The part of a key that a store sees.
std::string storeKey(const std::string& key) {
    return key.substr(0, key.find('\0'));
}

// What a node's store has, or would have if the node were made.
const Options& storeOf(const NodeSubject& node) {
    return node.canonical && node.node->created ? node.node->options : node.node->stored;
}

// The text that a store has under a key; nothing when it has none or a number.
std::optional<std::string> textIn(const Options& store, const std::string& key) {
    const auto found = store.find(storeKey(key));
    if (found == store.end() || !std::holds_alternative<std::string>(found->second)) {
        return std::nullopt;
    }
    return std::get<std::string>(found->second);
}

// Of the members of one object that a store has under the same key, which ends
// at a NUL: the last that is stored, otherwise the last. Null for none.
const Value* placeIn(const Value& object, const std::string& key) {
    const auto isBefore = [](const Value* member, const std::string& bound) {
        return member->key < bound;
    };
    const Value* place = nullptr;
    for (auto member =
             std::lower_bound(object.children.begin(), object.children.end(), key, isBefore);
         member != object.children.end() && storeKey((*member)->key) == key;
         ++member) {
        if (place == nullptr || !storedOf(*place) || storedOf(**member)) {
            place = *member;
        }
    }
    return place;
}

std::vector<const Value*> membersOf(const Value* object, const char* prefix) {
    std::vector<const Value*> members;
    if (object != nullptr && object->isObject()) {
        for (const Value* member : object->children) {
            if (hasPrefix(member->key, prefix)) {
                members.push_back(member);
            }
        }
    }
    return members;
}

// What the store has under a key that set-up looks up, and where that stands.
// Where a family is too short, set-up looks up "": nobody means that, but it
// may be there.
void look(const NodeSubject& node,
          const std::string& key,
          std::optional<std::string>* text,
          const Value** place) {
    *text = textIn(storeOf(node), key);
    *place = key.empty() && !*text ? nullptr : placeOf(node, key);
}

DeclaredEnd endOf(const NodeSubject& node, const std::string& key, const std::string& formatKey) {
    DeclaredEnd end;
    end.key = key;
    look(node, key, &end.name, &end.place);
    end.formatKey = formatKey;
    look(node, formatKey, &end.format, &end.formatPlace);
    return end;
}

std::string keyAt(const std::vector<const Value*>& members, size_t index) {
    return index < members.size() ? members[index]->key : "";
}

// The keys that set-up looks up for one of `count` managers.
DeclaredEnd endAt(const NodeSubject& node, const Side& side, size_t index, size_t count) {
    if (count == 1) {
        return endOf(node, side.nameKey, side.formatKey);
    }
    return endOf(node, keyAt(side.nameMembers, index), keyAt(side.formatMembers, index));
}

// The end of a key that names a stream, as it was meant where set-up does not
// come to it.
DeclaredEnd meantEnd(const NodeSubject& node, const Side& side, const Value& declared) {
    const std::string suffix = declared.key.substr(std::string_view(side.nameKey).size());
    return endOf(node, declared.key, side.formatKey + suffix);
}

// What was wired may come from the node's class, where the configuration does
// not give it.
void takeWired(const std::vector<StreamEnd>& wired, Side* side) {
    for (size_t i = 0; i < wired.size(); ++i) {
        DeclaredEnd& end = side->ends[i];
        end.name = end.name ? end.name : wired[i].name;
        end.format = end.format ? end.format : wired[i].format;
    }
}

std::string endingOf(const Value& member, const char* family) {
    return member.key.substr(std::string_view(family).size());
}

// The first format of the family whose ending no name has. REQUIRES: there are
// more formats than names.
const Value& spareFormat(const Side& side) {
    std::set<std::string> endings;
    for (const Value* name : side.nameMembers) {
        endings.insert(endingOf(*name, side.nameFamily));
    }
    return **std::find_if(
        side.formatMembers.begin(), side.formatMembers.end(), [&](const Value* format) {
            return endings.count(endingOf(*format, side.formatFamily)) == 0;
        });
}

// The first format that goes with a name of another ending, or with none.
std::optional<FormatPair> differingPair(const NodeSubject& node, const Side& side) {
    const Value* options = node.streamOptions();
    const Value* plain = options == nullptr ? nullptr : options->member(side.formatKey);
    if (side.managers == 1) {
        const bool isSpare = plain != nullptr && !side.formatMembers.empty();
        return isSpare ? std::optional(FormatPair{side.formatMembers[0], nullptr}) : std::nullopt;
    }
    if (side.formatMembers.size() > side.nameMembers.size()) {
        return FormatPair{&spareFormat(side), nullptr};
    }
    if (side.formatMembers.size() < side.nameMembers.size()) {
        return std::nullopt;
    }
    for (size_t i = 0; i < side.formatMembers.size(); ++i) {
        const FormatPair pair = {side.formatMembers[i], side.nameMembers[i]};
        if (endingOf(*pair.name, side.nameFamily) != endingOf(*pair.format, side.formatFamily)) {
            return pair;
        }
    }
    return plain != nullptr ? std::optional(FormatPair{plain, nullptr}) : std::nullopt;
}

void fillSide(const NodeSubject& node, const std::vector<StreamEnd>& wired, Side* side) {
    side->declared = membersOf(node.streamOptions(), side->nameKey);
    side->nameMembers = membersOf(node.streamOptions(), side->nameFamily);
    side->formatMembers = membersOf(node.streamOptions(), side->formatFamily);
    const bool isMade = node.canonical && node.node->created;
    side->managers = isMade ? wired.size() : side->declared.size();
    std::set<std::string> lookedUp;
    for (size_t i = 0; i < side->managers; ++i) {
        side->ends.push_back(endAt(node, *side, i, side->managers));
        lookedUp.insert(storeKey(side->ends.back().key));
    }
    if (isMade) {
        takeWired(wired, side);
    }
    side->streams = side->ends;
    for (const Value* declared : side->declared) {
        if (lookedUp.insert(storeKey(declared->key)).second) {
            side->streams.push_back(meantEnd(node, *side, *declared));
        }
    }
    side->differing = differingPair(node, *side);
}

Side inputSide() {
    Side side;
    side.word = "input";
    side.nameKey = "stream_input";
    side.nameFamily = "stream_input_";
    side.formatKey = "stream_fmt_in";
    side.formatFamily = "stream_fmt_in_";
    return side;
}

Side outputSide() {
    Side side;
    side.word = "output";
    side.nameKey = "stream_output";
    side.nameFamily = "stream_output_";
    side.formatKey = "stream_fmt_out";
    side.formatFamily = "stream_fmt_out_";
    return side;
}

NodeSubject subjectOf(const Value& value, const Node& node) {
    NodeSubject subject;
    subject.value = &value;
    subject.node = &node;
    subject.canonical = node.key == value.key;
    subject.isMeant = keyElsewhere(Level::Pipe, value.key) == nullptr;
    for (size_t i = 0; i < OPTION_OBJECTS.size(); ++i) {
        const Value* object = value.member(OPTION_OBJECTS[i]);
        subject.objects[i] = object != nullptr && object->isObject() ? object : nullptr;
    }
    subject.inputs = inputSide();
    subject.outputs = outputSide();
    fillSide(subject, node.inputs, &subject.inputs);
    fillSide(subject, node.outputs, &subject.outputs);
    return subject;
}

PipeSubject subjectOf(const Value& value, const Pipe& pipe) {
    PipeSubject subject;
    subject.value = &value;
    subject.pipe = &pipe;
    subject.executors = membersOf(&value, "executor_");
    subject.links = membersOf(&value, "link_");
    // The survey visits the members that count in the same order.
    const std::vector<const Value*> nodes = membersOf(&value, "node_");
    for (size_t i = 0; i < nodes.size(); ++i) {
        subject.nodes.push_back(subjectOf(*nodes[i], pipe.nodes[i]));
    }
    return subject;
}

std::vector<OptionObject> optionObjectsOf(const PipeSubject& pipe) {
    std::vector<OptionObject> objects;
    for (const NodeSubject& node : pipe.nodes) {
        for (const Value* object : node.objects) {
            if (object != nullptr) {
                objects.push_back({object, &node});
            }
        }
    }
    for (const Value* executor : pipe.executors) {
        const Value* object = executor->member("executor_opts");
        if (object != nullptr && object->isObject()) {
            objects.push_back({object, nullptr});
        }
    }
    for (const Value* link : pipe.links) {
        if (link->isObject()) {
            objects.push_back({link, nullptr});
        }
    }
    return objects;
}

}  // namespace

const Value* placeOf(const NodeSubject& node, const std::string& key) {
    const Value* place = nullptr;
    for (const Value* object : node.objects) {
        const Value* member = object == nullptr ? nullptr : placeIn(*object, storeKey(key));
        if (member != nullptr && (place == nullptr || !storedOf(*place) || storedOf(*member))) {
            place = member;
        }
    }
    return place;
}

Subject::Subject(const Source& source, const Survey& survey, const std::string& jsonError)
    : mSource(source), mSurvey(survey), mJsonError(jsonError) {
    for (const Pipe& pipe : survey.pipes) {
        const Value* value = source.root()->member(*pipe.key);
        if (value->isObject()) {
            mPipes.push_back(subjectOf(*value, pipe));
        }
    }
    for (PipeSubject& pipe : mPipes) {
        pipe.wires = wiresOf(pipe);
        for (const OptionObject& object : optionObjectsOf(pipe)) {
            mOptionObjects.push_back(object);
        }
    }
}

}  // namespace qvgraph
