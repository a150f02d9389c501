// Finds the key before which a closing bracket is probably missing; part of the
// source.
#ifndef QVGRAPH_SOURCE_OUTDENTED_H_
#define QVGRAPH_SOURCE_OUTDENTED_H_

#include <cstddef>
#include <deque>
#include <optional>
#include <string_view>

#include "source/value.h"

namespace qvgraph {

// The `outdented` of a SyntaxError: `values` are those of a text that is scanned
// from the byte `begin` and ends within an object.
std::optional<Span> firstOutdented(std::string_view text,
                                   size_t begin,
                                   const std::deque<Value>& values);

}  // namespace qvgraph

#endif  // QVGRAPH_SOURCE_OUTDENTED_H_
