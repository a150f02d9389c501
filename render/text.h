// Text for people: fit for a terminal, whatever bytes a configuration holds.
#ifndef QVGRAPH_RENDER_TEXT_H_
#define QVGRAPH_RENDER_TEXT_H_

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>

namespace qvgraph {

// `text` as valid UTF-8 on one line: bytes that are not UTF-8 become U+FFFD;
// control characters, and those that set the direction of text, \xNN with
// their code point.
std::string printable(std::string_view text);

// How many columns a printable text takes: one for each code point.
size_t columnsOf(std::string_view printable);

// `printable` with blanks behind it up to `columns`.
std::string padded(std::string_view printable, size_t columns);

// Writes a printable text that begins at the column `indent` (from 0) and does
// not go beyond the column 80: what does not fit goes on in further lines, as
// far indented. Breaks at blanks where there are any. Ends with a newline.
void writeWrapped(std::ostream& out, std::string_view printable, size_t indent);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_TEXT_H_
