// Hints for text that is not JSON: what the author probably intended; part of
// the source.
#ifndef QVGRAPH_SOURCE_HINT_H_
#define QVGRAPH_SOURCE_HINT_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace qvgraph {

// What must follow the text that has been read so far.
enum class Awaited {
    // Between tokens. Blanks and comments may come before each.
    Document,      // the root
    FirstElement,  // after '[': a value or ']'
    NextElement,   // after a comma in an array: a value
    FirstKey,      // after '{': a key or '}'
    NextKey,       // after a comma in an object: a key
    Colon,         // after a key
    MemberValue,   // after a colon
    ElementEnd,    // after a value in an array: a comma or ']'
    MemberEnd,     // after a value in an object: a comma or '}'
    End,           // after the root: nothing

    // Within a token.
    Letter,         // of true, false or null
    IntegerDigit,   // after a minus sign
    NoMoreDigit,    // after a leading zero
    FractionDigit,  // after a decimal point
    ExponentDigit,  // after an e and its sign
    Character,      // of a string, or the quote that closes it
    Escape,         // after a backslash
    HexDigit,       // after \u
    CommentStart,   // after a '/'
    CommentEnd,     // the end of a comment that begins with '/*'

    Shallower,  // a value that is nested less deeply
};

// Where and why scanning stopped.
struct Stop {
    std::string_view text;  // up to where scanning ends
    size_t begin = 0;       // where scanning began
    size_t byte = 0;        // the first that does not fit; the text's size if it is too short
    size_t token = 0;       // within a token: where it begins
    Awaited awaited = Awaited::Document;
};

// What to change, in lower case and without a full stop; empty if there is no
// useful hint.
std::string hintFor(const Stop& stop);

}  // namespace qvgraph

#endif  // QVGRAPH_SOURCE_HINT_H_
