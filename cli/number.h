// Parses numbers in arguments.
#ifndef QVGRAPH_CLI_NUMBER_H_
#define QVGRAPH_CLI_NUMBER_H_

#include <charconv>
#include <optional>
#include <string>
#include <system_error>

namespace qvgraph {

// The number that `text` consists of; none if `text` contains anything else or the
// number is not from `min` to `max`.
inline std::optional<int> numberIn(const std::string& text, int min, int max) {
    int number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    const bool isNumber = error == std::errc() && rest == end;
    return isNumber && number >= min && number <= max ? std::optional<int>(number) : std::nullopt;
}

}  // namespace qvgraph

#endif  // QVGRAPH_CLI_NUMBER_H_
