#include "check/key_hints.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "check/similar.h"
#include "survey/keys.h"
#include "survey/words.h"

namespace qvgraph {

namespace {

// The number of indexes that are tried to find a free one.
const int MAX_TRIED = 100;

bool isNumber(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

// Keys of families of objects end in a number, those of strings in any suffix.
bool hasNumbers(const ReservedKey& family) {
    return family.kind == ValueKind::Object;
}

// Where the suffix begins in a key that may belong to a family; the end of the
// key if the reserved key has no suffix.
size_t suffixIn(const ReservedKey& reserved, const std::string& folded) {
    if (!reserved.family) {
        return folded.size();
    }
    const size_t digits = folded.find_last_not_of("0123456789") + 1;
    if (hasNumbers(reserved)) {
        return digits;
    }
    if (hasPrefix(folded, reserved.name)) {
        return std::string_view(reserved.name).size();
    }
    return digits < folded.size() ? digits : folded.rfind('_') + 1;
}

// The words between the '_' of a key, in alphabetical order.
std::vector<std::string_view> wordsOf(std::string_view key) {
    std::vector<std::string_view> words;
    size_t begin = 0;
    while (begin <= key.size()) {
        const size_t end = std::min(key.find('_', begin), key.size());
        words.push_back(key.substr(begin, end - begin));
        begin = end + 1;
    }
    std::sort(words.begin(), words.end());
    return words;
}

// The reserved key that is nearest to `key`, within `limit` or the limit of
// nearestTo. Among equally near keys, a member of a family with a suffix wins:
// 'stream_fmt_in0' has an index.
template <typename Condition>
std::optional<IntendedKey> nearestOf(std::string_view key,
                                     std::optional<size_t> limit,
                                     Condition isCandidate) {
    const std::string folded = lowerCase(key);
    std::optional<IntendedKey> nearest;
    size_t smallest = 0;
    for (const ReservedKey& reserved : reservedKeys()) {
        const size_t suffix = suffixIn(reserved, folded);
        const bool hasSuffix = suffix < key.size();
        if (!isCandidate(reserved, hasSuffix)) {
            continue;
        }
        const size_t maximum = limit.value_or(std::clamp<size_t>(suffix / 3, 1, 3));
        const std::string_view stem = std::string_view(folded).substr(0, suffix);
        const size_t distance = distanceBetween(stem, reserved.name, maximum);
        const bool wins = distance < smallest || (distance == smallest && hasSuffix);
        if (distance <= maximum && (!nearest || wins)) {
            nearest = IntendedKey{&reserved, std::string(key.substr(suffix))};
            smallest = distance;
        }
    }
    return nearest;
}

std::optional<IntendedKey> nearestIn(Level level,
                                     std::string_view key,
                                     std::optional<size_t> limit) {
    return nearestOf(
        key, limit, [level](const ReservedKey& reserved, bool) { return reserved.level == level; });
}

std::optional<IntendedKey> nearestElsewhere(Level level, std::string_view key) {
    return nearestOf(key, std::nullopt, [level](const ReservedKey& reserved, bool hasSuffix) {
        return reserved.level != level && (!reserved.family || hasSuffix);
    });
}

// The reserved key with the words of `key` in another order.
std::optional<IntendedKey> keyWithWordsOf(Level level, std::string_view key) {
    const std::string folded = lowerCase(key);
    for (const ReservedKey& reserved : reservedKeys()) {
        if (reserved.level == level && !reserved.family &&
            wordsOf(reserved.name) == wordsOf(folded)) {
            return IntendedKey{&reserved, ""};
        }
    }
    return std::nullopt;
}

// The sections that have reserved keys, and the level of their members.
struct Section {
    std::string_view name;
    Level inside;
};

const std::array<Section, 5> SECTIONS = {{{"thread_opts", Level::ThreadOptions},
                                          {"executor_", Level::Executor},
                                          {"node_", Level::Node},
                                          {"node_opts", Level::NodeOptions},
                                          {"stream_opts", Level::StreamOptions}}};

bool hasMemberOf(const Value& value, Level level) {
    return value.isObject() &&
           std::any_of(value.children.begin(), value.children.end(), [level](const Value* member) {
               return isReservedKey(level, member->key);
           });
}

std::optional<Level> levelInside(const ReservedKey& reserved) {
    for (const Section& section : SECTIONS) {
        if (section.name == reserved.name) {
            return section.inside;
        }
    }
    return std::nullopt;
}

// The section of a level whose reserved keys a value has.
std::optional<IntendedKey> sectionLike(Level level, const Value& value) {
    for (const ReservedKey& reserved : reservedKeys()) {
        const std::optional<Level> inside = levelInside(reserved);
        if (reserved.level == level && inside && hasMemberOf(value, *inside)) {
            return IntendedKey{&reserved, ""};
        }
    }
    return std::nullopt;
}

// "'node_<n>'" or "\"thread_opts\"".
std::string patternOf(const ReservedKey& reserved) {
    if (!reserved.family) {
        return '"' + std::string(reserved.name) + '"';
    }
    return "'" + std::string(reserved.name) + '<' + reserved.name[0] + ">'";
}

std::string hintToRemove(Level level) {
    switch (level) {
        case Level::Root:
            return "remove it; the root contains only pipes";
        case Level::Executor:
            return "move it into \"executor_opts\" if it is an option";
        case Level::Node:
            return "move it into \"node_opts\" if it is an option";
        default:
            break;
    }
    std::vector<std::string> patterns;
    for (const ReservedKey& reserved : reservedKeys()) {
        if (reserved.level == level) {
            patterns.push_back(patternOf(reserved));
        }
    }
    return std::string("remove it; the ") +
           (patterns.size() == 1 ? "only reserved key of " : "reserved keys of ") + toText(level) +
           (patterns.size() == 1 ? " is " : " are ") + listOf(patterns);
}

}  // namespace

bool isReservedKey(Level level, std::string_view key) {
    // The only level whose keys may be in any letter case.
    const std::string read = level == Level::ThreadOptions ? lowerCase(key) : std::string(key);
    return std::any_of(
        reservedKeys().begin(), reservedKeys().end(), [&](const ReservedKey& reserved) {
            return reserved.level == level &&
                   (reserved.family ? hasPrefix(read, reserved.name) : read == reserved.name);
        });
}

std::optional<IntendedKey> nearestKey(Level level, std::string_view key, size_t limit) {
    return nearestIn(level, key, limit);
}

std::optional<IntendedKey> nearestKey(Level level, std::string_view key) {
    const auto nearest = nearestIn(level, key, std::nullopt);
    return nearest ? nearest : keyWithWordsOf(level, key);
}

std::string nearlyIn(Level level, std::string_view key) {
    const auto nearest = isReservedKey(level, key) ? std::nullopt : nearestKey(level, key);
    return nearest ? nearest->reserved->name : "";
}

const ReservedKey* keyElsewhere(Level level, std::string_view key) {
    const auto isKey = [&](const ReservedKey& reserved) {
        if (reserved.level == level || !hasPrefix(key, reserved.name)) {
            return false;
        }
        const std::string_view suffix = key.substr(std::string_view(reserved.name).size());
        return reserved.family ? isNumber(suffix) || !hasNumbers(reserved) : suffix.empty();
    };
    const auto found = std::find_if(reservedKeys().begin(), reservedKeys().end(), isKey);
    return found == reservedKeys().end() ? nullptr : &*found;
}

std::string nameOf(const IntendedKey& intended) {
    if (intended.reserved->family && !intended.suffix.empty()) {
        return quoted(intended.reserved->name + intended.suffix);
    }
    return patternOf(*intended.reserved);
}

std::string hintToRename(const IntendedKey& intended, const Value& object) {
    const ReservedKey& reserved = *intended.reserved;
    const bool isTaken = object.member(reserved.name + intended.suffix) != nullptr;
    if (!reserved.family && isTaken) {
        return "remove it; " + nameOf(intended) + " is already present";
    }
    if (!reserved.family || (!intended.suffix.empty() && !isTaken)) {
        return "rename it to " + nameOf(intended);
    }
    for (int index = 0; index < MAX_TRIED; ++index) {
        const std::string key = indexedKey(reserved.name, index);
        if (object.member(key) == nullptr) {
            return "rename it to " + quoted(key);
        }
    }
    return "rename it to " + patternOf(reserved) + " with a free number";
}

std::string hintToMove(Level level) {
    return level == Level::Root ? "move it to the root"
                                : std::string("move it into ") + toText(level);
}

std::string hintForUnknown(Level level, const Value& member) {
    if (const ReservedKey* elsewhere = keyElsewhere(level, member.key)) {
        return hintToMove(elsewhere->level);
    }
    if (const auto nearest = nearestKey(level, member.key)) {
        return hintToRename(*nearest, *member.parent);
    }
    if (const auto section = sectionLike(level, member)) {
        const bool isPresent = member.parent->member(section->reserved->name) != nullptr;
        return isPresent ? "move its members into " + nameOf(*section)
                         : hintToRename(*section, *member.parent);
    }
    if (const auto nearest = nearestElsewhere(level, member.key)) {
        return "rename it to " + nameOf(*nearest) + " and " + hintToMove(nearest->reserved->level);
    }
    return hintToRemove(level);
}

}  // namespace qvgraph
