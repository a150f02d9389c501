// The document, if the text is JSON.
#ifndef QVGRAPH_CHECK_DOCUMENT_H_
#define QVGRAPH_CHECK_DOCUMENT_H_

#include "model/model.h"

namespace qvgraph {

// The root of the document; null if the text is not JSON or the root is null.
inline const Value* documentOf(const Model& model) {
    const Value* root = model.source().root();
    return root == nullptr || root->kind == ValueKind::Null ? nullptr : root;
}

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_DOCUMENT_H_
