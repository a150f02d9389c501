// The text of a configuration with the location of everything in it: each
// value, key and comment, the members that a later one with the same key
// overrides, and the location at which the text stops being JSON.
//
//   {"a": [1],  // why                object at 0..., its member
//    "a": 2}                          "a" (overridden), an array with the number 1,
//                                     the comment "// why", and "a", the number 2
//
// The scanner accepts exactly what json11 accepts in its mode with comments,
// and reads keys, strings and numbers as json11 does. It is iterative: no text
// makes it use more stack than another.
//
// Thread safety: a source never changes, and may be read from any thread.
#ifndef QVGRAPH_SOURCE_SOURCE_H_
#define QVGRAPH_SOURCE_SOURCE_H_

#include <cstddef>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "source/value.h"

namespace qvgraph {

// A location in the text. Lines and columns count from 1. A column is a code
// point: a tab is one, and so is a byte that is not UTF-8. LF and CRLF end a
// line and belong to it.
struct Position {
    size_t byte = 0;
    size_t line = 1;
    size_t column = 1;
};

class Source {
public:
    // Scans `text` from the byte `begin` to the byte `end`, by default the end of
    // the text. Positions always count from the beginning of the text. Throws
    // std::length_error for a text of more than 4 GiB.
    explicit Source(std::string text, size_t begin = 0, size_t end = std::string::npos);

    // Values point to each other and into the text.
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;

    const std::string& text() const { return mText; }
    std::string_view text(Span span) const {
        return std::string_view(mText).substr(span.begin, span.end - span.begin);
    }

    // The root; null if the text is not JSON.
    const Value* root() const { return mError ? nullptr : &mValues.front(); }

    // Every value in the order of the text, including those that are overridden.
    // Empty if the text is not JSON.
    const std::deque<Value>& values() const { return mValues; }

    // In the order of the text, from `//` or `/*` on and without the end of the
    // line. If the text is not JSON, those before the error.
    const std::vector<Span>& comments() const { return mComments; }

    const std::optional<SyntaxError>& error() const { return mError; }

    // The position of any byte up to the end of the text. Takes logarithmic time,
    // even if all of the text is on one line.
    Position position(size_t byte) const;

    // The line with this number, from 1, without its end.
    std::string_view line(size_t number) const;
    size_t lineCount() const { return mLines.size(); }

private:
    std::string mText;
    std::deque<std::string> mDecoded;  // keys and strings that have escapes
    std::deque<Value> mValues;
    std::vector<std::unique_ptr<const Value*[]>> mChildren;  // that values refer to
    std::vector<Span> mComments;
    std::optional<SyntaxError> mError;
    std::vector<size_t> mLines;  // where each line begins

    // A boundary between two code points, and how many there are before it.
    struct Mark {
        size_t byte = 0;
        size_t codePoints = 0;
    };
    std::vector<Mark> mMarks;  // from the beginning on, at regular distances

    void pass(Mark* at, size_t bound) const;
    size_t codePointsBefore(size_t byte) const;
};

}  // namespace qvgraph

#endif  // QVGRAPH_SOURCE_SOURCE_H_
