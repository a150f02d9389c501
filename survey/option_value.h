// Option values as messages and reports show them.
#ifndef QVGRAPH_SURVEY_OPTION_VALUE_H_
#define QVGRAPH_SURVEY_OPTION_VALUE_H_

#include <string>

#include "survey/survey_data.h"

namespace qvgraph {

// "string", "int32", "int64" or "float".
const char* typeName(const OptionValue& value);

// A float as decimal text that reads back as the same float: "16777216.0" if it
// is whole and below 1e15, otherwise with as few digits as possible: "0.1",
// "1e+20". Infinities are "inf" and "-inf", not-a-number is "nan".
std::string floatText(float value);

// A string as quoted() shows it (survey/words.h), or the text of a number.
std::string valueText(const OptionValue& value);

}  // namespace qvgraph

#endif  // QVGRAPH_SURVEY_OPTION_VALUE_H_
