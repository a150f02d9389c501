// The options of a node, as its store sees them.
#ifndef QVGRAPH_MODEL_OPTIONS_H_
#define QVGRAPH_MODEL_OPTIONS_H_

#include <string>
#include <string_view>
#include <vector>

#include "model/model_data.h"

namespace qvgraph {

// The option that gives a key its value in the node's store: the last one that
// is stored, otherwise the last one. Null for none.
const Option* optionUnder(const Node& node, std::string_view key);

// What the node's options leave in its store, in the byte order of their keys.
std::vector<const Option*> storedOptions(const Node& node);

// The string that the node's options leave in its store under a key; null if
// there is none, or a number.
const std::string* storedString(const Node& node, std::string_view key);

// The part of a key or a string that the parser sees: up to its first NUL.
std::string_view untilNul(std::string_view string);

// The options of an object, each with what the survey recorded of it, which is
// moved; none if `object` is null or not an object.
OptionObject optionObjectOf(const Value* object, Conversions* conversions);

// Links the options of a node that have the same key in its store.
void linkOverridden(Node* node);

}  // namespace qvgraph

#endif  // QVGRAPH_MODEL_OPTIONS_H_
