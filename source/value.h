// The values of a scanned text, each with its location.
//
// Thread safety: may be read from any thread.
#ifndef QVGRAPH_SOURCE_VALUE_H_
#define QVGRAPH_SOURCE_VALUE_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace qvgraph {

// A part of the text, in bytes from 0; `end` is exclusive. A source of 10,000
// nodes has 300,000 spans: they are half as large as two sizes.
struct Span {
    constexpr Span() = default;
    constexpr Span(size_t from, size_t to)
        : begin(static_cast<uint32_t>(from)), end(static_cast<uint32_t>(to)) {}

    uint32_t begin = 0;
    uint32_t end = 0;
};

enum class ValueKind { Null, Bool, Number, String, Array, Object };

// "null", "a boolean", "a number", "a string", "an array" or "an object".
const char* toText(ValueKind kind);

struct Value {
    ValueKind kind = ValueKind::Null;
    Span span;                            // of the value, without its key
    Span keySpan;                         // of a member's key, with its quotes; otherwise empty
    std::string_view key;                 // of a member, decoded
    std::string_view text;                // of a string, decoded
    double number = 0;                    // of a number, as json11 reads it
    const Value* parent = nullptr;        // null for the root
    const Value* overriddenBy = nullptr;  // the next member of the same object with the same key

    // Of an array, its elements, in order. Of an object, its members in the byte
    // order of their keys; of several with the same key, only the last.
    std::span<const Value* const> children;

    // The member of an object with the key `wanted`, the last one if there are
    // several; null if there is none or if this is not an object.
    const Value* member(std::string_view wanted) const;

    bool isObject() const { return kind == ValueKind::Object; }
    bool isString() const { return kind == ValueKind::String; }
    bool isNumber() const { return kind == ValueKind::Number; }
};

// The JSON pointer (RFC 6901) of a value: "" for the root, "/pipe_0/node_1".
std::string pointerTo(const Value& value);

// Where the text stops being JSON, and what the author may have intended.
struct SyntaxError {
    // The first byte that does not fit; the size of the text if it is too short.
    size_t byte = 0;

    // What is still open there: the quote of a string, a comment, a bracket.
    std::optional<Span> opened;

    // If the text ends within an object: the first key whose line is indented no
    // deeper than the line that opens the object around it. A closing bracket is
    // probably missing before it.
    std::optional<Span> outdented;
    std::string hint;  // empty if there is no useful one
};

}  // namespace qvgraph

#endif  // QVGRAPH_SOURCE_VALUE_H_
