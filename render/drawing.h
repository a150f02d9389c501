// What a picture of a configuration shows in addition to the model: which
// findings belong to which pipe, node, stream or end of a stream.
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
    const StreamEnd* end = nullptr;
    Findings findings;
};

struct DrawnStream {
    const Stream* stream = nullptr;
    std::vector<DrawnEnd> producers;
    std::vector<DrawnEnd> consumers;
    Findings findings;  // that apply to the entire stream
};

struct DrawnNode {
    const Node* node = nullptr;
    Findings findings;  // except those on its streams
};

// An executor or a link.
struct DrawnSet {
    const OptionSet* set = nullptr;
    Findings findings;
};

// Everything in the model's order.
struct DrawnPipe {
    const Pipe* pipe = nullptr;
    std::vector<DrawnSet> executors;
    std::vector<DrawnSet> links;
    std::vector<DrawnNode> nodes;
    std::vector<DrawnStream> streams;
    Findings findings;     // on none of the above
    Findings allFindings;  // all in this pipe
};

struct Drawing {
    const CheckedFile* file = nullptr;
    std::string title;  // the file's name without its folder, printable
    std::vector<DrawnPipe> pipes;
    Findings findings;  // those in none of the pipes
};

// Arranges the findings of a check, or only those of the pipe with the index
// `pipe`. REQUIRES: the file loads. It must outlive the drawing.
Drawing drawingOf(const CheckedFile& file, std::optional<int> pipe);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_DRAWING_H_
