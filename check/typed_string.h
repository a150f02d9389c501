// Strings that are stored as numbers: "int32:5".
#ifndef QVGRAPH_CHECK_TYPED_STRING_H_
#define QVGRAPH_CHECK_TYPED_STRING_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "model/model.h"

namespace qvgraph {

// Of a string that is stored.
const size_t MAX_OPTION_BYTES = 127;

// Whether the option is a string that is too long to be stored.
bool isTooLong(const Option& option);

// Whether a string has a type word, "int32", "int64", "float" or "double", before
// its first ':', or is nothing else.
bool hasTypeWord(std::string_view string);

// The parts of a string that the parser stored as a number.
struct TypedString {
    std::string text;
    std::string word;   // "int32", "int64", "float" or "double"
    std::string value;  // after the first ':' and before the second
    std::string rest;   // everything after the first ':'

    bool isInteger() const { return word[0] == 'i'; }
};

// Nothing if the option is stored as a string, is a JSON number, or is not stored.
std::optional<TypedString> typedStringIn(const Option& option);

// The typed string WORD:VALUE.
TypedString typedString(const std::string& word, const std::string& value);

// The number at the beginning of a typed string's value, as its type reads it.
struct WrittenNumber {
    size_t length = 0;  // with the whitespace before it; 0 if there is no number
    bool fits = true;   // whether it is within the range of the type
};

// A "double:" fits if it is within the range of a double, although the parser
// stores it as a float.
WrittenNumber numberWrittenIn(const TypedString& typed);

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_TYPED_STRING_H_
