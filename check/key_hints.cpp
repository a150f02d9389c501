#include "check/key_hints.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "check/words.h"
#include "survey/keys.h"

namespace qvgraph {

namespace {

// How many indexes are tried for one that is free.
const int MOST_TRIED = 100;

std::string inLowerCase(std::string text) {
    for (char& letter : text) {
        if (letter >= 'A' && letter <= 'Z') {
            letter = static_cast<char>(letter - 'A' + 'a');
        }
    }
    return text;
}

bool isNumber(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

// Families of objects are known by a number, those of texts by any suffix.
bool hasNumbers(const KnownKey& family) {
    return family.kind == ValueKind::Object;
}

// Where the suffix begins in a key that may be one of a family; its end where
// the known key has none.
size_t suffixIn(const KnownKey& known, const std::string& folded) {
    if (!known.family) {
        return folded.size();
    }
    const size_t digits = folded.find_last_not_of("0123456789") + 1;
    if (hasNumbers(known)) {
        return digits;
    }
    if (hasPrefix(folded, known.name)) {
        return std::string_view(known.name).size();
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

// The known key that is nearest to `key`; without a limit, within that of
// nearestTo. Of equals, a member of a family that has a suffix is nearest:
// 'stream_fmt_in0' has an index.
template <typename Condition>
std::optional<MeantKey> nearestOf(const std::string& key,
                                  std::optional<size_t> limit,
                                  Condition isWanted) {
    const std::string folded = inLowerCase(key);
    std::optional<MeantKey> nearest;
    size_t least = 0;
    for (const KnownKey& known : knownKeys()) {
        const size_t suffix = suffixIn(known, folded);
        if (!isWanted(known, suffix < key.size())) {
            continue;
        }
        const size_t most = limit.value_or(std::clamp<size_t>(suffix / 3, 1, 3));
        const std::string_view stem = std::string_view(folded).substr(0, suffix);
        const size_t distance = distanceBetween(stem, known.name, most);
        const bool wins = distance < least || (distance == least && suffix < key.size());
        if (distance <= most && (!nearest || wins)) {
            nearest = MeantKey{&known, key.substr(suffix)};
            least = distance;
        }
    }
    return nearest;
}

std::optional<MeantKey> withWordsOf(Level level, const std::string& key) {
    const std::string folded = inLowerCase(key);
    for (const KnownKey& known : knownKeys()) {
        if (known.level == level && !known.family && wordsOf(known.name) == wordsOf(folded)) {
            return MeantKey{&known, ""};
        }
    }
    return std::nullopt;
}

std::optional<MeantKey> nearlyElsewhere(Level level, const std::string& key) {
    const auto isWanted = [level](const KnownKey& known, bool hasSuffix) {
        return known.level != level && (!known.family || hasSuffix);
    };
    return nearestOf(key, std::nullopt, isWanted);
}

// What stands in the sections that have known keys.
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
               return isKnownKey(level, member->key);
           });
}

std::optional<Level> insideOf(const KnownKey& known) {
    for (const Section& section : SECTIONS) {
        if (section.name == known.name) {
            return section.inside;
        }
    }
    return std::nullopt;
}

// The section of a level that has such members as a value has.
std::optional<MeantKey> sectionLike(Level level, const Value& value) {
    for (const KnownKey& known : knownKeys()) {
        const std::optional<Level> inside = insideOf(known);
        if (known.level == level && inside && hasMemberOf(value, *inside)) {
            return MeantKey{&known, ""};
        }
    }
    return std::nullopt;
}

// "'node_<n>'" or "\"thread_opts\"".
std::string patternOf(const KnownKey& known) {
    if (!known.family) {
        return '"' + std::string(known.name) + '"';
    }
    return "'" + std::string(known.name) + '<' + known.name[0] + ">'";
}

std::string hintToRemove(Level level) {
    switch (level) {
        case Level::Root:
            return "remove it; the root holds nothing but pipes";
        case Level::Executor:
            return "if it is an option, move it into \"executor_opts\"";
        case Level::Node:
            return "if it is an option, move it into \"node_opts\"";
        default:
            break;
    }
    std::vector<std::string> known;
    for (const KnownKey& key : knownKeys()) {
        if (key.level == level) {
            known.push_back(patternOf(key));
        }
    }
    return "remove it; " + listOf(known) + (known.size() == 1 ? " alone is" : " are") +
           " known here";
}

}  // namespace

bool isKnownKey(Level level, const std::string& key) {
    // The one level whose keys may be in any letter case.
    const std::string read = level == Level::ThreadOptions ? inLowerCase(key) : key;
    return std::any_of(knownKeys().begin(), knownKeys().end(), [&](const KnownKey& known) {
        return known.level == level &&
               (known.family ? hasPrefix(read, known.name) : read == known.name);
    });
}

std::optional<MeantKey> nearestKey(Level level, const std::string& key, size_t limit) {
    const auto isWanted = [level](const KnownKey& known, bool) { return known.level == level; };
    return nearestOf(key, limit, isWanted);
}

std::optional<MeantKey> nearestKey(Level level, const std::string& key) {
    const auto isWanted = [level](const KnownKey& known, bool) { return known.level == level; };
    const auto nearest = nearestOf(key, std::nullopt, isWanted);
    return nearest ? nearest : withWordsOf(level, key);
}

const KnownKey* keyElsewhere(Level level, const std::string& key) {
    const auto isIt = [&](const KnownKey& known) {
        const bool isFamily = known.family && hasPrefix(key, known.name);
        const std::string suffix = isFamily ? key.substr(std::string_view(known.name).size()) : "";
        return known.level != level &&
               (isFamily ? isNumber(suffix) || !hasNumbers(known) : key == known.name);
    };
    const auto found = std::find_if(knownKeys().begin(), knownKeys().end(), isIt);
    return found == knownKeys().end() ? nullptr : &*found;
}

std::string nameOf(const MeantKey& meant) {
    if (meant.known->family && !meant.suffix.empty()) {
        return quoted(meant.known->name + meant.suffix);
    }
    return patternOf(*meant.known);
}

std::string hintToWrite(const MeantKey& meant, const Value& object) {
    const std::string name = meant.known->name + meant.suffix;
    const bool isTaken = object.member(name) != nullptr;
    if (!meant.known->family) {
        return isTaken ? "remove it; " + nameOf(meant) + " is there as well"
                       : "write " + nameOf(meant);
    }
    if (!meant.suffix.empty() && !isTaken) {
        return "write " + nameOf(meant);
    }
    for (int index = 0; index < MOST_TRIED; ++index) {
        const std::string key = indexedKey(meant.known->name, index);
        if (object.member(key) == nullptr) {
            return "write '" + key + "'";
        }
    }
    return "write " + patternOf(*meant.known) + " with a number that is free";
}

std::string hintToMove(Level level) {
    return level == Level::Root ? "move it to the root"
                                : std::string("move it into ") + toText(level);
}

std::string hintForUnknown(Level level, const Value& member) {
    if (const KnownKey* elsewhere = keyElsewhere(level, member.key)) {
        return hintToMove(elsewhere->level);
    }
    if (const auto near = nearestKey(level, member.key)) {
        return hintToWrite(*near, *member.parent);
    }
    if (const auto section = sectionLike(level, member)) {
        const bool isThere = member.parent->member(section->known->name) != nullptr;
        return isThere ? "move its members into " + nameOf(*section)
                       : hintToWrite(*section, *member.parent);
    }
    if (const auto near = nearlyElsewhere(level, member.key)) {
        return "write " + nameOf(*near) + ", and " + hintToMove(near->known->level);
    }
    return hintToRemove(level);
}

}  // namespace qvgraph
