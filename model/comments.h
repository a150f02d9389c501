// Which member a comment describes; part of the model.
#ifndef QVGRAPH_MODEL_COMMENTS_H_
#define QVGRAPH_MODEL_COMMENTS_H_

#include <vector>

#include "model/model_data.h"
#include "source/source.h"

namespace qvgraph {

// The comments of a source, in the order of the text.
std::vector<Comment> commentsOf(const Source& source);

}  // namespace qvgraph

#endif  // QVGRAPH_MODEL_COMMENTS_H_
