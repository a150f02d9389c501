// Stored option values as reports show them.
#ifndef QVGRAPH_RENDER_OPTION_VALUE_H_
#define QVGRAPH_RENDER_OPTION_VALUE_H_

#include <string>

#include "survey/survey.h"

namespace qvgraph {

using OptionValue = Options::mapped_type;

// "string", "int32", "int64" or "float".
const char* typeName(const OptionValue& value);

// The shortest decimal text with a point or an exponent that reads back as the
// same float; "inf", "-inf" or "nan" where there is none.
std::string floatText(float value);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_OPTION_VALUE_H_
