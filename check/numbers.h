// Numbers as options and hints write them.
#ifndef QVGRAPH_CHECK_NUMBERS_H_
#define QVGRAPH_CHECK_NUMBERS_H_

#include <optional>
#include <string>

namespace qvgraph {

// What strtod() and strtoll() skip before a number.
extern const char* const WHITESPACE;

// Hints for numbers that no type can hold as they are written.
extern const char* const INT32_RANGE_HINT;
extern const char* const INT64_RANGE_HINT;
extern const char* const FLOAT_RANGE_HINT;

// A string without the whitespace at its beginning and at its end.
std::string trimmed(const std::string& string);

// The number that all of a string spells, in any notation that strtod() reads;
// nothing if it spells none, an infinity or not-a-number.
std::optional<double> parseNumber(const std::string& string);

// ---- values ----------------------------------------------------------------------

// Whether a number has no fraction.
bool isInteger(double number);

// Whether it is an integer below 2^53 in magnitude, so that no other integer
// reads as the same double.
bool isSafeInteger(double number);

// Whether it is an integer within the range of int32.
bool fitsInt32(double number);

// Whether it is an integer within the range of int64.
bool fitsInt64(double number);

// Whether it does not become infinite as a float; rounding is no obstacle.
bool fitsFloat(double number);

// ---- notations -------------------------------------------------------------------

// Whether a number has no characters except digits and signs: no point, no
// exponent, no "0x".
bool isWrittenInDigits(const std::string& number);

// Whether a number is a hexadecimal integer, not a hexadecimal float.
bool isHexInteger(const std::string& number);

// Whether the first digit of a number is 0, which makes an int64 octal or
// hexadecimal.
bool hasLeadingZero(const std::string& number);

// The decimal digits of an integer. REQUIRES: fitsInt64(number).
std::string toDecimal(double number);

// The hint `write "int64:5"`, with the quotes of JSON.
std::string hintToWriteTyped(const std::string& word, const std::string& value);

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_NUMBERS_H_
