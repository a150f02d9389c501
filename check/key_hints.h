// What a key without a meaning was intended to be, and hints that say so.
#ifndef QVGRAPH_CHECK_KEY_HINTS_H_
#define QVGRAPH_CHECK_KEY_HINTS_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "check/reserved_keys.h"
#include "source/source.h"

namespace qvgraph {

// A reserved key, or a member of a reserved family.
struct IntendedKey {
    const ReservedKey* reserved = nullptr;
    std::string suffix;  // after the prefix of a family; empty if it is not known
};

// Whether `key` has a meaning to the parser in an object of this level.
bool isReservedKey(Level level, std::string_view key);

// The reserved key of a level that is nearest to `key`, ignoring letter case,
// if at most `limit` letters differ.
std::optional<IntendedKey> nearestKey(Level level, std::string_view key, size_t limit);

// The same with the limit of nearestTo; a key with the same words in another
// order matches, too.
std::optional<IntendedKey> nearestKey(Level level, std::string_view key);

// The name of the reserved key of the level that `key` resembles without being
// reserved itself; "" for none.
std::string nearlyIn(Level level, std::string_view key);

// The reserved key of another level that `key` is; null for none. A key of a
// numbered family must end in a number.
const ReservedKey* keyElsewhere(Level level, std::string_view key);

// As messages name it: "stream_opts" in double quotes, 'node_7' in single
// quotes.
std::string nameOf(const IntendedKey& intended);

// "rename it to 'node_7'". If `object` already has that key, a free index or,
// if the key has none, "remove it".
std::string hintToRename(const IntendedKey& intended, const Value& object);

// "move it into a node".
std::string hintToMove(Level level);

// What to do about a member of an object of this level whose key is not
// reserved. If the key does not show what was intended, the members of its
// value do.
std::string hintForUnknown(Level level, const Value& member);

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_KEY_HINTS_H_
