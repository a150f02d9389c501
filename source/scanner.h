// Reads the text of a source from its first byte to its last; part of the
// source.
#ifndef QVGRAPH_SOURCE_SCANNER_H_
#define QVGRAPH_SOURCE_SCANNER_H_

#include <cstddef>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "source/value.h"

namespace qvgraph {

// What Source keeps under the same names.
struct Scan {
    std::deque<std::string> decoded;
    std::deque<Value> values;
    std::vector<std::unique_ptr<const Value*[]>> children;  // of the containers
    std::vector<Span> comments;
    std::optional<SyntaxError> error;
};

// Scans the text from the byte `begin` on; spans count from the beginning of the
// text. Keys and strings point into the text, which must outlive the values.
Scan scanText(std::string_view text, size_t begin);

}  // namespace qvgraph

#endif  // QVGRAPH_SOURCE_SCANNER_H_
