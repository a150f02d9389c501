// What a key without a meaning was meant to be; part of the check.
#ifndef QVGRAPH_CHECK_KEY_HINTS_H_
#define QVGRAPH_CHECK_KEY_HINTS_H_

#include <cstddef>
#include <optional>
#include <string>

#include "check/known_keys.h"
#include "source/source.h"

namespace qvgraph {

// A known key; of a family, a member of it.
struct MeantKey {
    const KnownKey* known = nullptr;
    std::string suffix;  // behind the prefix of a family; empty where it is not known
};

// Whether the parser gives `key` a meaning in an object of that level.
bool isKnownKey(Level level, const std::string& key);

// The known key of a level that is nearest to `key`, letter case aside: at most
// `limit` letters differ. Nothing when there is none.
std::optional<MeantKey> nearestKey(Level level, const std::string& key, size_t limit);

// The same with the limit of nearestTo; words in another order count as well.
std::optional<MeantKey> nearestKey(Level level, const std::string& key);

// The known key of another level that `key` is; null for none. Of those that
// have an index, a key with another suffix is none.
const KnownKey* keyElsewhere(Level level, const std::string& key);

// As messages name it: "stream_opts" in double quotes, 'node_7' in single ones.
std::string nameOf(const MeantKey& meant);

// "write 'node_7'". Where `object` has that key already: an index that is free
// or, where the key has none, what is to become of the member.
std::string hintToWrite(const MeantKey& meant, const Value& object);

// "move it into a node".
std::string hintToMove(Level level);

// What to do about a member of an object of that level whose key is none of the
// known ones. What stands in it tells what it was meant to be, if its key does
// not.
std::string hintForUnknown(Level level, const Value& member);

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_KEY_HINTS_H_
