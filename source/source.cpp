#include "source/source.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <limits>
#include <stdexcept>
#include <utility>

#include "source/scanner.h"
#include "source/utf8.h"

namespace qvgraph {

namespace {

const size_t BYTES_BETWEEN_MARKS = 256;

bool isAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

}  // namespace

Source::Source(std::string text, size_t begin, size_t end) : mText(std::move(text)) {
    if (uint64_t{mText.size()} > std::numeric_limits<uint32_t>::max()) {
        throw std::length_error("the text is larger than 4 GiB");
    }
    mLines.reserve(1 + static_cast<size_t>(std::count(mText.begin(), mText.end(), '\n')));
    mLines.push_back(0);
    for (size_t at = 0; (at = mText.find('\n', at)) != std::string::npos;) {
        mLines.push_back(++at);
    }
    mMarks.push_back({});
    for (Mark at; at.byte < mText.size();) {
        if (at.byte - mMarks.back().byte >= BYTES_BETWEEN_MARKS) {
            mMarks.push_back(at);
        }
        pass(&at, mMarks.back().byte + BYTES_BETWEEN_MARKS);
    }
    const std::string_view scanned = std::string_view(mText).substr(0, end);
    Scan scan = scanText(scanned, std::min(begin, scanned.size()));
    mDecoded = std::move(scan.decoded);
    mValues = std::move(scan.values);
    mChildren = std::move(scan.children);
    mComments = std::move(scan.comments);
    mError = std::move(scan.error);
}

// Moves on to the first code point at or after `bound`, or to the end of the text.
void Source::pass(Mark* at, size_t bound) const {
    const size_t end = std::min(bound, mText.size());
    while (at->byte < end) {
        if (isAscii(mText[at->byte])) {
            ++at->byte;
        } else {
            at->byte += lengthOfFirst(std::string_view(mText).substr(at->byte));
        }
        ++at->codePoints;
    }
}

Position Source::position(size_t byte) const {
    const auto next = std::upper_bound(mLines.begin(), mLines.end(), byte);
    Position position;
    position.byte = byte;
    position.line = static_cast<size_t>(std::distance(mLines.begin(), next));
    position.column = 1 + codePointsBefore(byte) - codePointsBefore(*std::prev(next));
    return position;
}

// Does not count a code point that continues at the byte.
size_t Source::codePointsBefore(size_t byte) const {
    const auto next = std::upper_bound(
        mMarks.begin(), mMarks.end(), byte, [](size_t a, const Mark& b) { return a < b.byte; });
    Mark at = *std::prev(next);
    while (at.byte < byte) {
        at.byte += lengthOfFirst(std::string_view(mText).substr(at.byte));
        at.codePoints += at.byte <= byte ? 1 : 0;
    }
    return at.codePoints;
}

std::string_view Source::line(size_t number) const {
    const std::string_view text = mText;
    const size_t begin = mLines[number - 1];
    if (number == mLines.size()) {
        return text.substr(begin);
    }
    const std::string_view line = text.substr(begin, mLines[number] - 1 - begin);
    return !line.empty() && line.back() == '\r' ? line.substr(0, line.size() - 1) : line;
}

}  // namespace qvgraph
