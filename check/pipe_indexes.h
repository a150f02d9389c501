// The members of the root, and the pipe indexes that map to them.
#ifndef QVGRAPH_CHECK_PIPE_INDEXES_H_
#define QVGRAPH_CHECK_PIPE_INDEXES_H_

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "model/model.h"

namespace qvgraph {

using PipesByIndex = std::map<size_t, const Value*>;

// The members of the root; empty if the root is not an object.
Members rootMembers(const Model& model);

// The members of the root that an index maps to.
PipesByIndex addressablePipes(const Model& model);

// The members of the root that no index maps to.
std::vector<const Value*> unaddressableMembers(const Model& model);

// "'pipe_0'".
std::string quotedPipeKey(size_t index);

// The addressable pipes, and the unaddressable members that were intended as
// pipes, at the indexes that they should have: the number in the key if it is
// free and below the number of pipes, otherwise the first free index.
PipesByIndex intendedPipes(const Model& model);

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_PIPE_INDEXES_H_
