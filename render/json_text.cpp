#include "render/json_text.h"

#include <utf8cpp/utf8.h>

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "render/text.h"

namespace qvgraph {

namespace {

// Whether a code point that the library does not escape must be escaped. Such code
// points occur only in strings, and fit into the 16 bits of an escape.
bool needsEscape(std::string_view codePoint) {
    const auto first = static_cast<unsigned char>(codePoint.front());
    return first >= 0x7f && printable(codePoint) != codePoint;
}

}  // namespace

void writeJson(std::ostream& out, const Json& report) {
    const std::string text = report.dump(2, ' ', false, Json::error_handler_t::replace);
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at != end) {
        const char* const begin = at;
        const uint32_t codePoint = utf8::unchecked::next(at);
        const std::string_view bytes(begin, static_cast<size_t>(at - begin));
        if (needsEscape(bytes)) {
            char escaped[12];
            snprintf(escaped, sizeof(escaped), "\\u%04x", codePoint);
            out << escaped;
        } else {
            out << bytes;
        }
    }
    out << '\n';
}

}  // namespace qvgraph
