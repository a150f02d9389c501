// Lays out a graph with the program "dot" of Graphviz.
#ifndef QVGRAPH_CLI_LAYOUT_H_
#define QVGRAPH_CLI_LAYOUT_H_

#include <chrono>
#include <string>

namespace qvgraph {

struct LayoutRequest {
    std::string graph;   // in the DOT language
    std::string format;  // "svg" or "png"
    std::chrono::seconds timeLimit = std::chrono::seconds(60);
    bool showProgress = true;  // on a terminal
};

// Returns the picture of a graph. Throws FileError if the program is missing, fails,
// takes too long or does not write a picture.
std::string layOut(const LayoutRequest& request);

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_LAYOUT_H_
