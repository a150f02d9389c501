// Text for people: safe for a terminal, whatever bytes a configuration contains.
#ifndef QVGRAPH_RENDER_TEXT_H_
#define QVGRAPH_RENDER_TEXT_H_

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>

namespace qvgraph {

// `text` as valid UTF-8 on one line. Bytes that are not UTF-8 become U+FFFD.
// Control characters, and those that set the direction of text, become \xNN with
// their code point.
std::string printable(std::string_view text);

// The number of columns of a printable text: one for each code point.
size_t columnsOf(std::string_view printable);

// `printable`, followed by blanks up to `columns`.
std::string padded(std::string_view printable, size_t columns);

// Writes a printable text that begins at the column `indent` (from 0), and wraps it
// at the column 80 into further lines with the same indent. Breaks at blanks if
// possible. Ends with a newline.
void writeWrapped(std::ostream& out, std::string_view printable, size_t indent);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_TEXT_H_
