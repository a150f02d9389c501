// What a picture of a configuration shows, whatever it is drawn with: pipes of
// nodes, the streams between them, and the findings on whatever they concern.
#ifndef QVGRAPH_RENDER_DRAWING_H_
#define QVGRAPH_RENDER_DRAWING_H_

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "check/check.h"

namespace qvgraph {

// In the order of the text.
using Findings = std::vector<const Finding*>;

// One end of a stream, at a node.
struct DrawnEnd {
    size_t node = 0;  // its position in the pipe
    std::optional<std::string> format;
    bool newestOnly = false;  // inputs only
    Findings findings;
};

// A stream by its name, as far as the configuration says who gives and who
// takes it, whatever set-up reached.
struct DrawnStream {
    std::string name;
    std::vector<DrawnEnd> producers;  // none or several where the configuration is wrong
    std::vector<DrawnEnd> consumers;
    Findings findings;  // that nobody gives it, or that nobody takes it
};

struct DrawnNode {
    const Node* node = nullptr;
    Findings findings;  // but those on its streams
};

// An executor or a link.
struct DrawnSet {
    const OptionSet* set = nullptr;
    Findings findings;
};

struct DrawnPipe {
    const Pipe* pipe = nullptr;
    std::vector<DrawnSet> executors;
    std::vector<DrawnSet> links;
    std::vector<DrawnNode> nodes;  // in the parser's order
    std::vector<DrawnStream> streams;
    Findings findings;     // on what is no node, no stream and no option set
    Findings allFindings;  // all in this pipe
};

struct Drawing {
    const CheckedFile* file = nullptr;
    std::string title;  // the file's name without its folder, printable
    std::vector<DrawnPipe> pipes;
    Findings findings;  // those in none of the pipes
};

// Arranges what a check has found out, or one pipe of it: that with the index
// `pipe`. REQUIRES: the file loads. It must outlive the drawing.
Drawing drawingOf(const CheckedFile& file, std::optional<int> pipe);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_DRAWING_H_
