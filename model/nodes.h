// The nodes of a pipe, with their options and the ends of their streams; part of
// the model.
#ifndef QVGRAPH_MODEL_NODES_H_
#define QVGRAPH_MODEL_NODES_H_

#include <string_view>

#include "model/model_data.h"

namespace qvgraph {

// The members of an object whose keys begin with `prefix`; none if it is null or
// not an object.
Members membersOf(const Value* object, std::string_view prefix);

// A node at `value`, of which the survey recorded `surveyed`.
Node nodeOf(const Value& value, SurveyedNode surveyed);

}  // namespace qvgraph

#endif  // QVGRAPH_MODEL_NODES_H_
