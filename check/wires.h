// The streams of a pipe; part of the check.
#ifndef QVGRAPH_CHECK_WIRES_H_
#define QVGRAPH_CHECK_WIRES_H_

#include <vector>

#include "check/subject.h"

namespace qvgraph {

// Every stream of a pipe, from its nodes. The ends point into the pipe.
std::vector<Wire> wiresOf(const PipeSubject& pipe);

// Whether the names of all streams are known that nodes take (inputs) or give
// (outputs).
bool knowsEvery(Side NodeSubject::*side, const PipeSubject& pipe);

// Where the name of an end stands; the node where it is not known.
const Value& placeOf(const PipeSubject& pipe, const WireEnd& end);

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_WIRES_H_
