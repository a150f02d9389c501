// The streams of a pipe; part of the model.
#ifndef QVGRAPH_MODEL_STREAMS_H_
#define QVGRAPH_MODEL_STREAMS_H_

#include <vector>

#include "model/model_data.h"

namespace qvgraph {

// Every stream that an end of a node names. The streams refer to the nodes.
std::vector<Stream> streamsOf(const std::vector<Node>& nodes);

// The member that names an end; the node if there is none.
const Value& nameLocation(const Pipe& pipe, const Endpoint& endpoint);

}  // namespace qvgraph

#endif  // QVGRAPH_MODEL_STREAMS_H_
