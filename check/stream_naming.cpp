#include "check/stream_naming.h"

#include <algorithm>
#include <set>
#include <string_view>

#include "check/key_hints.h"
#include "survey/keys.h"
#include "survey/words.h"

namespace qvgraph {

namespace {

std::string_view suffixAfter(const Value& member, std::string_view family) {
    return member.key.substr(family.size());
}

// The first indexed format whose suffix no name has. REQUIRES: there are more
// indexed formats than names.
const Value& spareFormat(const Side& side) {
    std::set<std::string_view> suffixes;
    for (const Value* name : side.nameMembers) {
        suffixes.insert(suffixAfter(*name, side.nameFamily));
    }
    return **std::find_if(
        side.formatMembers.begin(), side.formatMembers.end(), [&](const Value* format) {
            return suffixes.count(suffixAfter(*format, side.formatFamily)) == 0;
        });
}

}  // namespace

bool isStreamKey(std::string_view key) {
    return hasPrefix(key, "stream_input") || hasPrefix(key, "stream_output");
}

bool isNearlyStreamKey(std::string_view key) {
    return !isStreamKey(key) && isStreamKey(nearlyIn(Level::StreamOptions, key));
}

std::optional<FormatPair> differingPair(const Node& node, const Side& side) {
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
        if (suffixAfter(*pair.name, side.nameFamily) !=
            suffixAfter(*pair.format, side.formatFamily)) {
            return pair;
        }
    }
    return plain != nullptr ? std::optional(FormatPair{plain, nullptr}) : std::nullopt;
}

bool hasSpareFormat(const Node& node, const Side& side) {
    const auto pair = differingPair(node, side);
    return pair && pair->name == nullptr;
}

bool isNameless(const StreamEnd& end) {
    return end.name == nullptr && end.nameOption == nullptr;
}

Naming namingOf(const Node& node, const Side& side) {
    const size_t declared = side.declared.size();
    if (side.managers < declared) {
        return Naming::TooMany;
    }
    if (declared > 1 && side.managers == declared && side.nameMembers.size() < declared) {
        return Naming::Mixed;
    }
    if (node.isReady() || std::ranges::none_of(side.wired(), isNameless)) {
        return Naming::Right;
    }
    return side.managers > declared ? Naming::TooFew : Naming::SingleIndexed;
}

std::string freeNameKey(const Side& side) {
    std::set<std::string_view> used;
    for (const Value* member : side.nameMembers) {
        used.insert(member->key);
    }
    int index = 0;
    while (used.count(indexedKey(side.nameFamily, index)) != 0) {
        ++index;
    }
    return indexedKey(side.nameFamily, index);
}

std::string nameOfKey(const Side& side, std::string_view key) {
    return key == side.nameKey || key == side.formatKey ? inDoubleQuotes(key) : quoted(key);
}

std::string familyOf(std::string_view prefix) {
    return "'" + std::string(prefix) + "<k>'";
}

std::string_view suffixOf(std::string_view key, std::string_view prefix) {
    return hasPrefix(key, prefix) ? key.substr(prefix.size()) : std::string_view();
}

const Value& nameLocation(const Node& node, const StreamEnd& end) {
    return end.nameOption != nullptr ? *end.nameOption->member : *node.value;
}

std::string leftUninitialised(const Node& node) {
    const std::string key = quoted(node.value->key);
    return key.substr(1, key.size() - 2) + " is silently left uninitialised";
}

}  // namespace qvgraph
