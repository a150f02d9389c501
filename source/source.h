// Where things stand in the text of a configuration: every value, key and
// comment with its place, members that a later one of the same key replaces,
// and the place where the text stops being JSON.
//
//   {"a": [1],  // why                object at 0..., its member
//    "a": 2}                          "a" (overridden), an array with the number 1,
//                                     the comment "// why", and "a", the number 2
//
// The scanner accepts exactly what json11 accepts in its mode with comments,
// and reads keys, strings and numbers as json11 does. It is iterative: no text
// makes it use more of the stack.
//
// Thread safety: a scanned source is never changed, and may be read from any
// thread.
#ifndef QVGRAPH_SOURCE_SOURCE_H_
#define QVGRAPH_SOURCE_SOURCE_H_

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qvgraph {

// A part of the text, in bytes from 0; `end` is exclusive.
struct Span {
    size_t begin = 0;
    size_t end = 0;
};

// A place in the text. Lines and columns count from 1. A column is a code
// point: a tab, and a byte that is no UTF-8, is one. LF and CRLF end a line and
// belong to it.
struct Position {
    size_t byte = 0;
    size_t line = 1;
    size_t column = 1;
};

enum class ValueKind { Null, Bool, Number, String, Array, Object };

// "null", "a boolean", "a number", "a string", "an array" or "an object".
const char* toText(ValueKind kind);

struct Value {
    ValueKind kind = ValueKind::Null;
    Span span;                            // the value's own text
    Span keySpan;                         // the key before it, with its quotes; empty without one
    std::string key;                      // of an object's member, decoded
    std::string text;                     // of a string, decoded
    double number = 0;                    // of a number, as json11 reads it
    const Value* parent = nullptr;        // nothing above the root
    const Value* overriddenBy = nullptr;  // the next member of the same object and key

    // Of an array, its elements, in order. Of an object, the members that count,
    // in the byte order of their keys: of several with one key, the last.
    std::vector<const Value*> children;

    // The member of an object that counts for the key `wanted`; nothing when there is none
    // or this is no object.
    const Value* member(std::string_view wanted) const;

    bool isObject() const { return kind == ValueKind::Object; }
    bool isString() const { return kind == ValueKind::String; }
    bool isNumber() const { return kind == ValueKind::Number; }
};

// Where scanning stopped, and what could have been meant.
struct SyntaxError {
    size_t byte =
        0;  // of the first byte that fits nowhere; the end of the text when it is too short
    std::optional<Span> opened;  // what is open there: a string's quote, a comment, a bracket

    // Of a text that ends within an object: the first key whose line is indented
    // no deeper than the one that opens the object around it, as if a bracket
    // were missing before it.
    std::optional<Span> outdented;
    std::string hint;  // "" when there is nothing to say that helps
};

class Source {
public:
    // Scans `text` from the byte `begin` to the byte `end`, which is the end of
    // the text by default. Positions count in the whole text.
    explicit Source(std::string text, size_t begin = 0, size_t end = std::string::npos);

    // Values point to each other.
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;

    const std::string& text() const { return mText; }

    // The root; nothing where the text is not JSON.
    const Value* root() const { return mError ? nullptr : &mValues.front(); }

    // Every value in the order of the text, the overridden ones among them.
    // Empty where the text is not JSON.
    const std::deque<Value>& values() const { return mValues; }

    // In the order of the text, with `//` or `/*` and without a line's end. Where
    // the text is not JSON, those before the error.
    const std::vector<Span>& comments() const { return mComments; }

    const std::optional<SyntaxError>& error() const { return mError; }

    // Any byte up to the end of the text. Takes the logarithm of its length, also
    // where all of it stands on one line.
    Position position(size_t byte) const;

    // The line with that number, from 1, without its end.
    std::string_view line(size_t number) const;
    size_t lineCount() const { return mLines.size(); }

private:
    std::string mText;
    std::deque<Value> mValues;
    std::vector<Span> mComments;
    std::optional<SyntaxError> mError;
    std::vector<size_t> mLines;  // where each begins

    // A place between two code points, with how many stand before it in the text.
    struct Mark {
        size_t byte = 0;
        size_t codePoints = 0;
    };
    std::vector<Mark> mMarks;  // from the beginning on, one every so many bytes

    size_t codePointsBefore(size_t byte) const;
};

// The JSON pointer (RFC 6901) of a value: "" for the root, "/pipe_0/node_1".
std::string pointerTo(const Value& value);

}  // namespace qvgraph

#endif  // QVGRAPH_SOURCE_SOURCE_H_
