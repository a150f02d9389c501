#include "render/excerpt.h"

#include <utf8cpp/utf8.h>

#include <algorithm>
#include <string_view>
#include <vector>

#include "render/text.h"

namespace qvgraph {

namespace {

const char* const ELLIPSIS = "...";

// Together with its gutter, a line has at most 100 columns.
const size_t MAX_COLUMNS = 92;
const size_t MAX_COLUMNS_OF_CUT = MAX_COLUMNS - 2 * 3;

// The maximum number of bytes in a code point.
const size_t MAX_BYTES = 4;

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// The number of bytes in the first code point of a text; 1 for a byte that is not
// UTF-8.
size_t lengthOfFirst(std::string_view text) {
    for (size_t length = 1; length <= std::min(text.size(), MAX_BYTES); ++length) {
        const std::string_view bytes = text.substr(0, length);
        if (utf8::is_valid(bytes.begin(), bytes.end())) {
            return length;
        }
    }
    return 1;
}

// What is shown for a code point, or for a byte that is not UTF-8.
std::string shown(std::string_view bytes) {
    if (bytes == "\t") {
        return " ";
    }
    return bytes == "\ufeff" ? "\\xfeff" : printable(bytes);  // a byte-order mark is invisible
}

// A part of a line, code point by code point.
struct Cells {
    std::vector<std::string> texts;  // what is shown for each
    size_t marked = 0;               // the first cell of the span
    size_t markedEnd = 0;
    bool cutLeft = false;  // the line continues beyond
    bool cutRight = false;
};

// As much of a line around the bytes from `begin` to `end` as could be shown.
Cells cellsOf(std::string_view line, size_t begin, size_t end) {
    Cells cells;
    size_t at = begin > MAX_BYTES * MAX_COLUMNS ? begin - MAX_BYTES * MAX_COLUMNS : 0;
    while (at > 0 && at < begin && isContinuation(line[at])) {
        ++at;
    }
    cells.cutLeft = at > 0;
    while (at < line.size() && cells.texts.size() <= cells.marked + MAX_COLUMNS) {
        const size_t length = lengthOfFirst(line.substr(at));
        const std::string_view bytes = line.substr(at, length);
        cells.texts.push_back(shown(bytes));
        at += length;
        cells.marked += at <= begin ? 1 : 0;
        cells.markedEnd += at <= end ? 1 : 0;
    }
    cells.cutRight = at < line.size();
    return cells;
}

// The column at which each cell begins, and the column at which the last one ends.
std::vector<size_t> columnsOfEach(const std::vector<std::string>& texts) {
    std::vector<size_t> columns = {0};
    for (const std::string& text : texts) {
        columns.push_back(columns.back() + columnsOf(text));
    }
    return columns;
}

// The cells that are shown, `end` exclusive: all of them, or those around the
// marked ones.
struct Window {
    size_t begin = 0;
    size_t end = 0;
};

Window windowOf(const Cells& cells, const std::vector<size_t>& columns) {
    const size_t count = cells.texts.size();
    if (!cells.cutLeft && !cells.cutRight && columns.back() <= MAX_COLUMNS) {
        return {0, count};
    }
    const size_t marked = columns[cells.marked];
    const size_t width = std::min(columns[cells.markedEnd] - marked, MAX_COLUMNS_OF_CUT / 2);
    const size_t before = (MAX_COLUMNS_OF_CUT - width) / 2;
    Window window;
    while (columns[window.begin] + before < marked) {
        ++window.begin;
    }
    window.end = window.begin;
    while (window.end < count &&
           columns[window.end + 1] - columns[window.begin] <= MAX_COLUMNS_OF_CUT) {
        ++window.end;
    }
    while (window.end == count && window.begin > 0 &&
           columns[count] - columns[window.begin - 1] <= MAX_COLUMNS_OF_CUT) {
        --window.begin;
    }
    return window;
}

}  // namespace

Excerpt excerptOf(const Source& source, const Span& span) {
    const std::string_view line = source.line(source.position(span.begin).line);
    const auto lineBegin = static_cast<size_t>(line.data() - source.text().data());
    const size_t begin = std::min(span.begin - lineBegin, line.size());
    const size_t end = std::clamp(span.end - lineBegin, begin, line.size());
    const Cells cells = cellsOf(line, begin, end);
    const std::vector<size_t> columns = columnsOfEach(cells.texts);
    const Window window = windowOf(cells, columns);

    Excerpt excerpt;
    excerpt.line = window.begin > 0 || cells.cutLeft ? ELLIPSIS : "";
    const size_t before = columnsOf(excerpt.line) - columns[window.begin] + columns[cells.marked];
    for (size_t i = window.begin; i < window.end; ++i) {
        excerpt.line += cells.texts[i];
    }
    excerpt.line += window.end < cells.texts.size() || cells.cutRight ? ELLIPSIS : "";
    const size_t markedEnd = columns[std::clamp(window.end, cells.marked, cells.markedEnd)];
    const size_t width = std::max<size_t>(markedEnd - columns[cells.marked], 1);
    excerpt.marker = std::string(before, ' ') + '^' + std::string(width - 1, '~');
    return excerpt;
}

std::string gutterOf(size_t lineNumber) {
    const std::string number = std::to_string(lineNumber);
    return std::string(number.size() < 5 ? 5 - number.size() : 0, ' ') + number + " | ";
}

std::string gutterBelow(size_t lineNumber) {
    return std::string(gutterOf(lineNumber).size() - 2, ' ') + "| ";
}

}  // namespace qvgraph
