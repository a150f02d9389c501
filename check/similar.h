// Distances between names, for "did you mean".
#ifndef QVGRAPH_CHECK_SIMILAR_H_
#define QVGRAPH_CHECK_SIMILAR_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qvgraph {

// The number of letters to insert, delete, replace or swap with their neighbour
// to turn one string into the other; `limit` + 1 if it is more than `limit`.
size_t distanceBetween(std::string_view a, std::string_view b, size_t limit);

// The candidate that is nearest to `string`, the first of equally near ones; ""
// if none is within a third of the string's length (at least 1, at most 3).
std::string nearestTo(std::string_view string, const std::vector<std::string>& candidates);

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_SIMILAR_H_
