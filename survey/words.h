// Parts of messages: quoted names, lists and counts.
#ifndef QVGRAPH_SURVEY_WORDS_H_
#define QVGRAPH_SURVEY_WORDS_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qvgraph {

// A string in single quotes, cut to 60 bytes and "..." if it is longer.
std::string quoted(std::string_view string);

// A key in double quotes, as it is written in a configuration.
std::string inDoubleQuotes(std::string_view key);

// "a", "a and b", "a, b and c"; of more than `limit` words, "a, b, c and 4
// more".
std::string listOf(const std::vector<std::string>& words, size_t limit = 6);

// "1 node", "2 nodes".
std::string counted(size_t number, const std::string& thing);

// Replaces A to Z with a to z; all other bytes stay.
std::string lowerCase(std::string_view string);

}  // namespace qvgraph

#endif  // QVGRAPH_SURVEY_WORDS_H_
