// What could have been meant where a text stops being JSON; part of the source.
#ifndef QVGRAPH_SOURCE_HINT_H_
#define QVGRAPH_SOURCE_HINT_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace qvgraph {

// What alone could follow the text read so far.
enum class Awaited {
    // Between tokens. Blanks and comments may stand before each.
    Document,      // the root
    FirstElement,  // behind '[': a value or ']'
    NextElement,   // behind a comma in an array: a value
    FirstKey,      // behind '{': a key or '}'
    NextKey,       // behind a comma in an object: a key
    Colon,         // behind a key
    MemberValue,   // behind a colon
    ElementEnd,    // behind a value in an array: a comma or ']'
    MemberEnd,     // behind a value in an object: a comma or '}'
    End,           // behind the root: nothing

    // Within a token.
    Letter,         // of true, false or null
    IntegerDigit,   // behind a minus sign
    NoMoreDigit,    // behind a leading zero
    FractionDigit,  // behind a point
    ExponentDigit,  // behind an e and its sign
    Character,      // of a string, or the quote that closes it
    Escape,         // behind a backslash
    HexDigit,       // behind \u
    CommentStart,   // behind a '/'
    CommentEnd,     // the end of a comment that begins with '/*'

    Shallower,  // as many containers are open as may stand around a value
};

// Where and why scanning stopped.
struct Stop {
    std::string_view text;  // up to where scanning ends
    size_t begin = 0;       // where it began
    size_t byte = 0;        // the first that does not fit; the text's size when it is too short
    size_t token = 0;       // within a token, where that begins
    Awaited awaited = Awaited::Document;
};

// What to change, in lower case and without a full stop; "" when there is
// nothing to say that helps.
std::string hintFor(const Stop& stop);

}  // namespace qvgraph

#endif  // QVGRAPH_SOURCE_HINT_H_
