// How a node names its streams, and what may be wrong with the names.
#ifndef QVGRAPH_CHECK_STREAM_NAMING_H_
#define QVGRAPH_CHECK_STREAM_NAMING_H_

#include <optional>
#include <string>
#include <string_view>

#include "model/model.h"

namespace qvgraph {

// Whether the node has an input or an output.
inline bool hasStreams(const Node& node) {
    return !node.inputs.ends.empty() || !node.outputs.ends.empty();
}

// Whether a key of "stream_opts" declares a stream.
bool isStreamKey(std::string_view key);

// Whether a key does not declare a stream, but resembles "stream_input" or
// "stream_output", with or without an index.
bool isNearlyStreamKey(std::string_view key);

// A format, and the name with which it is paired by position.
struct FormatPair {
    const Value* format = nullptr;
    const Value* name = nullptr;  // null for a spare format: there are fewer names
};

// The first format that is paired with a name of a different suffix, or with no
// name. Nothing if formats are missing, because it is unknown which ones.
std::optional<FormatPair> differingPair(const Node& node, const Side& side);

// Whether there is a format without a name.
bool hasSpareFormat(const Node& node, const Side& side);

// What is wrong with the names of a side. Each mistake has its own rule.
enum class Naming {
    Right,
    SingleIndexed,  // single-stream-key
    Mixed,          // stream-keys-mixed
    TooMany,        // stream-count
    TooFew,         // stream-name-missing
};

// Whether nothing in the node names the end, not even a value of the wrong type.
bool isNameless(const StreamEnd& end);

Naming namingOf(const Node& node, const Side& side);

// The indexed key of a name with the first free index.
std::string freeNameKey(const Side& side);

// A key of a side as messages show it: "stream_input" in double quotes,
// 'stream_input_0' in single quotes.
std::string nameOfKey(const Side& side, std::string_view key);

// "'stream_input_<k>'".
std::string familyOf(std::string_view prefix);

// What follows a prefix in a key; "" if the key does not have the prefix.
std::string_view suffixOf(std::string_view key, std::string_view prefix);

// The member that names the end; the node if no member does.
const Value& nameLocation(const Node& node, const StreamEnd& end);

// "node_1 is silently left uninitialised".
std::string leftUninitialised(const Node& node);

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_STREAM_NAMING_H_
