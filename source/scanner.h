// Reads the text of a source from its first byte to its last; part of the
// source.
#ifndef QVGRAPH_SOURCE_SCANNER_H_
#define QVGRAPH_SOURCE_SCANNER_H_

#include <cstddef>
#include <deque>
#include <optional>
#include <string_view>
#include <vector>

#include "source/source.h"

namespace qvgraph {

// What Source keeps under the same names.
struct Scan {
    std::deque<Value> values;
    std::vector<Span> comments;
    std::optional<SyntaxError> error;
};

// Scans what follows the byte `begin`. Places count in the whole text.
Scan scanText(std::string_view text, size_t begin);

}  // namespace qvgraph

#endif  // QVGRAPH_SOURCE_SCANNER_H_
