#include "check/numbers.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace qvgraph {

const char* const WHITESPACE = " \t\n\v\f\r";
const char* const INT32_RANGE_HINT = "write an integer from -2147483648 to 2147483647";
const char* const INT64_RANGE_HINT =
    "write an integer from -9223372036854775808 to 9223372036854775807";
const char* const FLOAT_RANGE_HINT = "write 0, or a number with a magnitude from 1.2e-38 to 3.4e38";

std::string trimmed(const std::string& string) {
    const size_t first = string.find_first_not_of(WHITESPACE);
    return first == std::string::npos
               ? ""
               : string.substr(first, string.find_last_not_of(WHITESPACE) - first + 1);
}

std::optional<double> parseNumber(const std::string& string) {
    char* end = nullptr;
    const double number = std::strtod(string.c_str(), &end);
    if (string.empty() || *end != '\0' || !std::isfinite(number)) {
        return std::nullopt;
    }
    return number;
}

bool isInteger(double number) {
    return std::trunc(number) == number;
}

bool isSafeInteger(double number) {
    const double limit = 9007199254740992.0;  // 2^53
    return isInteger(number) && std::abs(number) < limit;
}

bool fitsInt32(double number) {
    return isInteger(number) && number >= std::numeric_limits<int32_t>::min() &&
           number <= std::numeric_limits<int32_t>::max();
}

bool fitsInt64(double number) {
    const double limit = 9223372036854775808.0;  // 2^63
    return isInteger(number) && number >= -limit && number < limit;
}

bool fitsFloat(double number) {
    return std::isfinite(static_cast<float>(number));
}

bool isWrittenInDigits(const std::string& number) {
    return number.find_first_not_of("+-0123456789") == std::string::npos;
}

bool isHexInteger(const std::string& number) {
    return number.find_first_of("xX") != std::string::npos &&
           number.find_first_of(".pP") == std::string::npos;
}

bool hasLeadingZero(const std::string& number) {
    const size_t first = number.find_first_not_of("+-");
    return first != std::string::npos && number[first] == '0';
}

std::string toDecimal(double number) {
    return std::to_string(static_cast<long long>(number));
}

std::string hintToWriteTyped(const std::string& word, const std::string& value) {
    return "write \"" + word + ':' + value + '"';
}

}  // namespace qvgraph
