#include "source/utf8.h"

#include <algorithm>

namespace qvgraph {

namespace {

bool isContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xc0) == 0x80;
}

// Whether a second byte makes the sequence too long for its code point, a
// surrogate, or greater than the last code point.
bool isOutOfRange(unsigned lead, unsigned second) {
    return (lead == 0xe0 && second < 0xa0) || (lead == 0xed && second > 0x9f) ||
           (lead == 0xf0 && second < 0x90) || (lead == 0xf4 && second > 0x8f);
}

// How many bytes of a code point follow its first one; 0 if the byte begins none.
size_t bytesAfter(unsigned lead) {
    if (lead < 0xc2 || lead > 0xf4) {
        return 0;
    }
    if (lead < 0xe0) {
        return 1;
    }
    return lead < 0xf0 ? 2 : 3;
}

}  // namespace

void appendUtf8(uint32_t codePoint, std::string* text) {
    const auto append = [text](uint32_t byte) { text->push_back(static_cast<char>(byte)); };
    if (codePoint < 0x80) {
        append(codePoint);
        return;
    }
    if (codePoint < 0x800) {
        append(0xc0 | codePoint >> 6);
    } else {
        if (codePoint < 0x10000) {
            append(0xe0 | codePoint >> 12);
        } else {
            append(0xf0 | codePoint >> 18);
            append(0x80 | (codePoint >> 12 & 0x3f));
        }
        append(0x80 | (codePoint >> 6 & 0x3f));
    }
    append(0x80 | (codePoint & 0x3f));
}

size_t lengthOfFirst(std::string_view text) {
    const unsigned lead = static_cast<unsigned char>(text[0]);
    const std::string_view rest = text.substr(1, bytesAfter(lead));
    if (rest.empty() || rest.size() < bytesAfter(lead) ||
        !std::all_of(rest.begin(), rest.end(), isContinuation) ||
        isOutOfRange(lead, static_cast<unsigned char>(rest[0]))) {
        return 1;
    }
    return 1 + rest.size();
}

}  // namespace qvgraph
