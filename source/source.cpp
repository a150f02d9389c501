#include "source/source.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "source/scanner.h"
#include "source/utf8.h"

namespace qvgraph {

namespace {

const size_t BYTES_BETWEEN_MARKS = 256;

// Elements stand in the order of the text.
size_t indexIn(const Value& array, const Value& element) {
    const auto found =
        std::lower_bound(array.children.begin(),
                         array.children.end(),
                         element.span.begin,
                         [](const Value* a, size_t begin) { return a->span.begin < begin; });
    return static_cast<size_t>(std::distance(array.children.begin(), found));
}

// A key as a pointer has it.
std::string escaped(const std::string& key) {
    std::string text;
    for (const char c : key) {
        if (c == '~') {
            text += "~0";
        } else if (c == '/') {
            text += "~1";
        } else {
            text += c;
        }
    }
    return text;
}

}  // namespace

const char* toText(ValueKind kind) {
    switch (kind) {
        case ValueKind::Null:
            return "null";
        case ValueKind::Bool:
            return "a boolean";
        case ValueKind::Number:
            return "a number";
        case ValueKind::String:
            return "a string";
        case ValueKind::Array:
            return "an array";
        case ValueKind::Object:
            return "an object";
    }
    return "";
}

const Value* Value::member(std::string_view wanted) const {
    if (!isObject()) {
        return nullptr;
    }
    const auto found = std::lower_bound(
        children.begin(), children.end(), wanted, [](const Value* a, std::string_view b) {
            return a->key < b;
        });
    return found != children.end() && (*found)->key == wanted ? *found : nullptr;
}

Source::Source(std::string text, size_t begin, size_t end) : mText(std::move(text)) {
    mLines.push_back(0);
    for (size_t at = 0; (at = mText.find('\n', at)) != std::string::npos;) {
        mLines.push_back(++at);
    }
    mMarks.push_back({});
    for (Mark at; at.byte < mText.size(); ++at.codePoints) {
        if (at.byte - mMarks.back().byte >= BYTES_BETWEEN_MARKS) {
            mMarks.push_back(at);
        }
        at.byte += lengthOfFirst(std::string_view(mText).substr(at.byte));
    }
    const std::string_view scanned = std::string_view(mText).substr(0, end);
    Scan scan = scanText(scanned, std::min(begin, scanned.size()));
    mValues = std::move(scan.values);
    mComments = std::move(scan.comments);
    mError = std::move(scan.error);
}

Position Source::position(size_t byte) const {
    const auto next = std::upper_bound(mLines.begin(), mLines.end(), byte);
    Position position;
    position.byte = byte;
    position.line = static_cast<size_t>(std::distance(mLines.begin(), next));
    position.column = 1 + codePointsBefore(byte) - codePointsBefore(*std::prev(next));
    return position;
}

// A code point that the byte is in the midst of does not count.
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

std::string pointerTo(const Value& value) {
    std::vector<std::string> tokens;
    for (const Value* at = &value; at->parent != nullptr; at = at->parent) {
        tokens.push_back(at->parent->isObject() ? escaped(at->key)
                                                : std::to_string(indexIn(*at->parent, *at)));
    }
    std::string pointer;
    for (auto token = tokens.rbegin(); token != tokens.rend(); ++token) {
        pointer += '/' + *token;
    }
    return pointer;
}

}  // namespace qvgraph
