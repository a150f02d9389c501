// Hints to registered node classes.
#ifndef QVGRAPH_CHECK_CLASS_HINTS_H_
#define QVGRAPH_CHECK_CLASS_HINTS_H_

#include <string>
#include <vector>

#include "check/similar.h"
#include "model/model.h"
#include "survey/words.h"

namespace qvgraph {

// The registered class whose name is most similar to that of the node's class; ""
// if none is similar.
inline std::string nearestClass(const Model& model, const Node& node) {
    std::vector<std::string> names;
    for (const NodeClass& registered : model.nodeClasses().classes) {
        names.push_back(registered.name);
    }
    return nearestTo(node.className, names);
}

inline std::string hintToClass(const std::string& nearest) {
    return "write " + quoted(nearest) + " if you intended that class";
}

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_CLASS_HINTS_H_
