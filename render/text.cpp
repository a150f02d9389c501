#include "render/text.h"

#include <utf8cpp/utf8.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <iterator>

namespace qvgraph {

namespace {

const size_t LINE_COLUMNS = 80;

// The narrowest column that text is wrapped to, however deep it is indented.
const size_t MIN_COLUMNS = 20;

bool isControl(uint32_t codePoint) {
    return codePoint < 0x20 || (codePoint >= 0x7f && codePoint < 0xa0);
}

// Where a text of valid UTF-8 is cut so that at most `columns` stand before
// the cut: behind a blank where there is one.
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

}  // namespace

std::string printable(std::string_view text) {
    std::string valid;
    utf8::replace_invalid(text.begin(), text.end(), std::back_inserter(valid));
    std::string out;
    const char* at = valid.data();
    const char* const end = at + valid.size();
    while (at != end) {
        const char* const begin = at;
        const uint32_t codePoint = utf8::unchecked::next(at);
        if (isControl(codePoint)) {
            char escaped[5];
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
    size_t cut = cutAt(printable, columns);
    out << printable.substr(0, cut) << '\n';
    printable.remove_prefix(cut);
    while (!printable.empty()) {
        printable.remove_prefix(std::min(printable.find_first_not_of(' '), printable.size()));
        cut = cutAt(printable, columns);
        out << std::string(indent, ' ') << printable.substr(0, cut) << '\n';
        printable.remove_prefix(cut);
    }
}

}  // namespace qvgraph
