// Texts that an option store gets as numbers; part of the check.
#ifndef QVGRAPH_CHECK_TYPED_TEXT_H_
#define QVGRAPH_CHECK_TYPED_TEXT_H_

#include <string_view>

namespace qvgraph {

// "int32", "int64", "float" or "double" where a text, which has no NUL, stands
// for a number: the word before its first ':', or the whole. Otherwise "".
inline std::string_view typeWordOf(std::string_view text) {
    const std::string_view word = text.substr(0, text.find(':'));
    for (const std::string_view known : {"int32", "int64", "float", "double"}) {
        if (word == known) {
            return word;
        }
    }
    return "";
}

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_TYPED_TEXT_H_
