#include "render/text.h"

#include <utf8cpp/utf8.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <iterator>

namespace qvgraph {

namespace {

const size_t LINE_COLUMNS = 80;

// The minimum width of wrapped text, however deep its indent.
const size_t MIN_COLUMNS = 20;

// Includes line separators, and characters that set the direction of text.
bool isControl(uint32_t codePoint) {
    return codePoint < 0x20 || (codePoint >= 0x7f && codePoint < 0xa0) || codePoint == 0x200e ||
           codePoint == 0x200f || (codePoint >= 0x2028 && codePoint <= 0x202e) ||
           (codePoint >= 0x2066 && codePoint <= 0x2069);
}

// Where to cut a text of valid UTF-8 so that at most `columns` are before the cut:
// at a blank if possible.
size_t cutAt(std::string_view text, size_t columns) {
    const char* at = text.data();
    const char* const end = at + text.size();
    for (size_t i = 0; i < columns && at != end; ++i) {
        utf8::unchecked::next(at);
    }
    if (at == end) {
        return text.size();
    }
    const auto fits = static_cast<size_t>(at - text.data());
    const size_t blank = text.rfind(' ', fits);
    return blank == std::string_view::npos || blank == 0 ? fits : blank;
}

// Most text is: it needs no decoding.
bool isPlainAscii(char c) {
    return c >= 0x20 && c < 0x7f;
}

}  // namespace

std::string printable(std::string_view text) {
    if (std::ranges::all_of(text, isPlainAscii)) {
        return std::string(text);
    }
    std::string valid;
    utf8::replace_invalid(text.begin(), text.end(), std::back_inserter(valid));
    std::string out;
    const char* at = valid.data();
    const char* const end = at + valid.size();
    while (at != end) {
        const char* const begin = at;
        const uint32_t codePoint = utf8::unchecked::next(at);
        if (isControl(codePoint)) {
            char escaped[12];
            snprintf(escaped, sizeof(escaped), "\\x%02x", codePoint);
            out += escaped;
        } else {
            out.append(begin, at);
        }
    }
    return out;
}

size_t columnsOf(std::string_view printable) {
    return static_cast<size_t>(
        utf8::unchecked::distance(printable.data(), printable.data() + printable.size()));
}

std::string padded(std::string_view printable, size_t columns) {
    const size_t used = columnsOf(printable);
    return std::string(printable) + std::string(used < columns ? columns - used : 0, ' ');
}

void writeWrapped(std::ostream& out, std::string_view printable, size_t indent) {
    const size_t columns =
        indent + MIN_COLUMNS < LINE_COLUMNS ? LINE_COLUMNS - indent : MIN_COLUMNS;
    for (;;) {
        const size_t cut = cutAt(printable, columns);
        const size_t next = printable.find_first_not_of(' ', cut);
        if (next == std::string_view::npos) {
            out << printable.substr(0, cut) << '\n';
            return;
        }
        const size_t end = printable.find_last_not_of(' ', cut - 1) + 1;
        out << printable.substr(0, end) << '\n' << std::string(indent, ' ');
        printable.remove_prefix(next);
    }
}

}  // namespace qvgraph
