// Layouts by the program "dot" of Graphviz.
#ifndef QVGRAPH_CLI_LAYOUT_H_
#define QVGRAPH_CLI_LAYOUT_H_

#include <chrono>
#include <string>

namespace qvgraph {

struct LayoutRequest {
    std::string graph;   // for Graphviz
    std::string format;  // "svg" or "png"
    std::chrono::seconds timeLimit = std::chrono::seconds(60);
    bool showProgress = true;  // on a terminal
};

// The picture of a graph. Throws FileError where the program is missing, fails,
// takes too long or makes something else than a picture.
std::string layOut(const LayoutRequest& request);

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_LAYOUT_H_
