#include "model/nodes.h"

#include <algorithm>
#include <utility>
#include <variant>

#include "model/options.h"
#include "survey/keys.h"

namespace qvgraph {

namespace {

const Side INPUTS = {
    .word = "input",
    .nameKey = "stream_input",
    .nameFamily = "stream_input_",
    .formatKey = "stream_fmt_in",
    .formatFamily = "stream_fmt_in_",
};

const Side OUTPUTS = {
    .word = "output",
    .nameKey = "stream_output",
    .nameFamily = "stream_output_",
    .formatKey = "stream_fmt_out",
    .formatFamily = "stream_fmt_out_",
};

// ---- Ends of streams --------------------------------------------------------

// The string in the node's store under a key. A store that is not the host's own
// may hold anything: the survey read it back.
const std::string* stringUnder(const Node& node, std::string_view key) {
    if (!node.created || !node.canonical || node.watched) {
        return storedString(node, key);
    }
    const auto found = node.options.find(untilNul(key));
    return found == node.options.end() ? nullptr : std::get_if<std::string>(&found->second);
}

// The option under a key. If a family has too few keys, set-up looks up "": no
// author intends that, but the key may exist.
const Option* optionFor(const Node& node, std::string_view key, const std::string* found) {
    return key.empty() && found == nullptr ? nullptr : optionUnder(node, key);
}

void setName(const Node& node, std::string_view key, const std::string* name, StreamEnd* end) {
    end->nameKey = key;
    end->name = name;
    end->nameOption = optionFor(node, key, name);
}

void setFormat(const Node& node, std::string_view key, const std::string* format, StreamEnd* end) {
    end->formatKey = key;
    end->format = format;
    end->formatOption = optionFor(node, key, format);
}

std::string_view keyAt(Members members, size_t index) {
    return index < members.size() ? members[index]->key : std::string_view();
}

// The key that the author intends for one of the side's managers.
std::string_view nameKeyAt(const Side& side, size_t index) {
    return side.managers == 1 ? side.nameKey : keyAt(side.nameMembers, index);
}

std::string_view formatKeyAt(const Side& side, size_t index) {
    return side.managers == 1 ? side.formatKey : keyAt(side.formatMembers, index);
}

// The string that a lookup of set-up found in the node's store, or would find if
// set-up got that far; otherwise the one that the node's class bound.
const std::string* stringFor(const Node& node,
                             std::string_view key,
                             const std::optional<StreamLookup>& lookup,
                             const std::optional<std::string>& bound) {
    const bool isMissed = lookup && !lookup->found;
    const std::string* const string = isMissed ? nullptr : stringUnder(node, key);
    return string == nullptr && bound ? &*bound : string;
}

// The end of a manager.
StreamEnd wiredEnd(const Node& node, const Side& side, size_t index, const SurveyedEnd& wired) {
    const std::string_view nameKey =
        wired.nameLookup ? std::string_view(wired.nameLookup->key) : nameKeyAt(side, index);
    const std::string_view formatKey =
        wired.formatLookup ? std::string_view(wired.formatLookup->key) : formatKeyAt(side, index);
    StreamEnd end;
    setName(node, nameKey, stringFor(node, nameKey, wired.nameLookup, wired.name), &end);
    setFormat(node, formatKey, stringFor(node, formatKey, wired.formatLookup, wired.format), &end);
    end.latestOnly = wired.remainNewest;
    return end;
}

// The end of a node that was not created.
StreamEnd intendedEnd(const Node& node, const Side& side, size_t index) {
    return wiredEnd(node, side, index, {});
}

// The end of a declaration that set-up does not look up. Its format has the same
// suffix.
StreamEnd declaredEnd(const Node& node, const Side& side, const Value& declared) {
    StreamEnd end;
    setName(node, declared.key, stringUnder(node, declared.key), &end);
    const std::string_view suffix = declared.key.substr(std::string_view(side.nameKey).size());
    if (const Option* format = optionUnder(node, side.formatKey + std::string(suffix))) {
        const std::string_view key = format->member->key;
        setFormat(node, key, stringUnder(node, key), &end);
    }
    return end;
}

bool isLookedUp(const Side& side, std::string_view key) {
    return std::ranges::any_of(
        side.ends, [key](const StreamEnd& end) { return untilNul(end.nameKey) == untilNul(key); });
}

void addEnds(const Node& node, const std::vector<SurveyedEnd>& wired, Side* side) {
    const bool isCreated = node.canonical && node.created;
    side->managers = isCreated ? wired.size() : side->declared.size();
    side->ends.reserve(std::max(side->managers, side->declared.size()));
    for (size_t i = 0; i < side->managers; ++i) {
        side->ends.push_back(isCreated ? wiredEnd(node, *side, i, wired[i])
                                       : intendedEnd(node, *side, i));
    }
    for (const Value* declared : side->declared) {
        if (!isLookedUp(*side, declared->key)) {
            side->ends.push_back(declaredEnd(node, *side, *declared));
        }
    }
}

void fillSide(const Node& node, const std::vector<SurveyedEnd>& wired, Side* side) {
    side->declared = membersOf(node.streamOptions(), side->nameKey);
    side->nameMembers = membersOf(node.streamOptions(), side->nameFamily);
    side->formatMembers = membersOf(node.streamOptions(), side->formatFamily);
    addEnds(node, wired, side);
}

// Set-up reads the mode of an input after its format. The class may change it
// afterwards.
bool isModeRecorded(const Node& node, size_t input) {
    const bool isWired = node.canonical && node.created && input < node.inputEnds.size();
    return isWired && node.inputEnds[input].format.has_value();
}

// Inputs that set-up did not get to have the mode of the node.
void setMode(Node* node) {
    const std::string* const mode = stringUnder(*node, "stream_mode_in");
    if (mode == nullptr || *mode != "remain_newest") {
        return;
    }
    for (size_t i = 0; i < node->inputs.ends.size(); ++i) {
        StreamEnd& end = node->inputs.ends[i];
        end.latestOnly = end.latestOnly || !isModeRecorded(*node, i);
    }
}

}  // namespace

Members membersOf(const Value* object, std::string_view prefix) {
    if (object == nullptr || !object->isObject()) {
        return {};
    }
    const auto first = std::lower_bound(
        object->children.begin(),
        object->children.end(),
        prefix,
        [](const Value* member, std::string_view bound) { return member->key < bound; });
    const auto last = std::find_if(first, object->children.end(), [prefix](const Value* member) {
        return !hasPrefix(member->key, prefix);
    });
    return {first, last};
}

Node nodeOf(const Value& value, SurveyedNode surveyed) {
    Node node;
    static_cast<SurveyedNode&>(node) = std::move(surveyed);
    node.value = &value;
    node.canonical = node.key == node.member;
    for (size_t i = 0; i < OPTION_OBJECTS.size(); ++i) {
        node.objects[i] = optionObjectOf(value.member(OPTION_OBJECTS[i]), &node.conversions[i]);
    }
    linkOverridden(&node);
    node.inputs = INPUTS;
    node.outputs = OUTPUTS;
    fillSide(node, node.inputEnds, &node.inputs);
    fillSide(node, node.outputEnds, &node.outputs);
    setMode(&node);
    return node;
}

}  // namespace qvgraph
