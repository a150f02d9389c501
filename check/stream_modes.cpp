#include "check/stream_modes.h"

#include <algorithm>
#include <string>
#include <variant>

#include "check/similar.h"
#include "survey/words.h"

namespace qvgraph {

std::optional<std::string_view> modeIn(const Option& mode) {
    if (!mode.stored || !std::holds_alternative<std::string>(*mode.stored)) {
        return std::nullopt;
    }
    return std::get<std::string>(*mode.stored);
}

bool isIntendedAsLatestOnly(std::string_view mode) {
    std::string plain = lowerCase(mode);
    std::ranges::replace_if(
        plain, [](char c) { return c == '-' || c == ' '; }, '_');
    return distanceBetween(plain, LATEST_ONLY, 2) <= 2 ||
           plain.find("newest") != std::string::npos || plain.find("latest") != std::string::npos;
}

}  // namespace qvgraph
