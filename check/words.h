// Words of messages: names in quotes, lists, and names that are nearly others.
#ifndef QVGRAPH_CHECK_WORDS_H_
#define QVGRAPH_CHECK_WORDS_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qvgraph {

// A text in single quotes; what is longer than 60 bytes ends in "...".
std::string quoted(std::string_view text);

// "a", "a and b", "a, b and c"; of more than `most`, "a, b, c and 4 more".
std::string listOf(const std::vector<std::string>& words, size_t most = 6);

// "1 node", "2 nodes".
std::string counted(size_t number, const std::string& thing);

// How many letters one has to insert, delete, replace or swap with their
// neighbour to turn one text into the other; `limit` + 1 when more than `limit`.
size_t distanceBetween(std::string_view a, std::string_view b, size_t limit);

// The one of `candidates` that is nearest to `text`, the first of equals;
// nothing ("") when none is within a third of the text's length, at least 1 and
// at most 3.
std::string nearestTo(std::string_view text, const std::vector<std::string>& candidates);

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_WORDS_H_
