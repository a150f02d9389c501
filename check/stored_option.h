// What becomes of an option on its way into a store; part of the check.
#ifndef QVGRAPH_CHECK_STORED_OPTION_H_
#define QVGRAPH_CHECK_STORED_OPTION_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "check/subject.h"
#include "source/source.h"
#include "survey/survey.h"

namespace qvgraph {

// What a store keeps under a key.
using Stored = Options::mapped_type;

const size_t MOST_OPTION_BYTES = 127;  // of a text that is stored

// The part of a key or a text that the parser sees; valid as long as the text.
std::string_view untilNul(const std::string& text);

// Whether the option is a text that is not stored because of its length.
bool isTooLong(const Value& option);

// A text that is stored as a number, in the parts that the parser splits it
// into.
struct TypedText {
    std::string text;
    std::string word;   // "int32", "int64", "float" or "double"
    std::string value;  // behind the first ':' and before the second
    std::string rest;   // all that is behind the first ':'

    bool isWhole() const { return word[0] == 'i'; }
};

// Nothing for what is stored as a text, as a JSON number or not at all.
std::optional<TypedText> typedIn(const Value& option);

// What the conversion makes of a value.
struct Reading {
    Stored stored;
    size_t length = 0;  // of the part of the value that was read; 0 for no number
    bool fits = true;   // the number is within the range of its type
};

// A "double:" fits when it is within the range of a double, although it is
// stored as a float.
Reading readingOf(const TypedText& typed);

// A JSON number without its fraction, as the nearest 32-bit integer.
int32_t toInt32(double number);

// Nothing for an option that is not stored.
std::optional<Stored> storedOf(const Value& option);

// A text in quotes; a number, a float in the shortest text that leads back to
// it: "16777216.0", "0.1", "1e+20", "inf".
std::string textOf(const Stored& stored);

// "'gain'", "'gain' is stored as 3": what findings about an option begin with.
std::string nameOf(const Value& option);
std::string isStoredAs(const Value& option, const Stored& stored);

// Every member of every option object.
template <typename Look>
void forEachOption(const Subject& subject, Look look) {
    for (const OptionObject& object : subject.optionObjects()) {
        for (const Value* option : object.value->children) {
            look(*option);
        }
    }
}

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_STORED_OPTION_H_
