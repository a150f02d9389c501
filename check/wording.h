// How the messages of rules name options, classes and nodes.
#ifndef QVGRAPH_CHECK_WORDING_H_
#define QVGRAPH_CHECK_WORDING_H_

#include <string>

#include "model/model.h"
#include "survey/option_value.h"
#include "survey/words.h"

namespace qvgraph {

// "'gain'".
inline std::string nameOf(const Option& option) {
    return quoted(untilNul(option.member->key));
}

// "'gain' is stored as 3". REQUIRES: the option is stored.
inline std::string isStoredAs(const Option& option) {
    return nameOf(option) + " is stored as " + valueText(*option.stored);
}

// "class 'Camera'".
inline std::string classOf(const Node& node) {
    return "class " + quoted(node.className);
}

// The maximum number of related locations of a finding.
const size_t MAX_RELATED = 8;

// "'node_0'": the key of the node that produces or consumes a stream.
inline std::string nodeOf(const Pipe& pipe, const Endpoint& endpoint) {
    return quoted(pipe.nodes[endpoint.node].value->key);
}

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_WORDING_H_
