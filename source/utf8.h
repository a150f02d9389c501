// UTF-8, byte by byte; part of the source.
#ifndef QVGRAPH_SOURCE_UTF8_H_
#define QVGRAPH_SOURCE_UTF8_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qvgraph {

// Appends a code point up to U+10FFFF. A surrogate becomes three bytes, like any
// other code point of its size.
void appendUtf8(uint32_t codePoint, std::string* text);

// The number of bytes in the first code point of `text`; 1 for a byte that is
// not UTF-8. REQUIRES: `text` is not empty.
size_t lengthOfFirst(std::string_view text);

}  // namespace qvgraph

#endif  // QVGRAPH_SOURCE_UTF8_H_
