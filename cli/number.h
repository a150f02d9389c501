// Numbers as arguments.
#ifndef QVGRAPH_CLI_NUMBER_H_
#define QVGRAPH_CLI_NUMBER_H_

#include <charconv>
#include <optional>
#include <string>
#include <system_error>

namespace qvgraph {

// The number in an argument, from `least` to `most`; nothing when there is none
// or anything else besides.
inline std::optional<int> numberIn(const std::string& text, int least, int most) {
    int number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    const bool isNumber = error == std::errc() && rest == end;
    return isNumber && number >= least && number <= most ? std::optional<int>(number)
                                                         : std::nullopt;
}

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_NUMBER_H_
