// Keys with an index, and the members that an index maps to.
#ifndef QVGRAPH_SURVEY_KEYS_H_
#define QVGRAPH_SURVEY_KEYS_H_

#include <json11.hpp>
#include <optional>
#include <string>
#include <string_view>

namespace qvgraph {

inline bool hasPrefix(std::string_view key, std::string_view prefix) {
    return key.substr(0, prefix.size()) == prefix;
}

inline std::string indexedKey(const char* prefix, int number) {
    return prefix + std::to_string(number);
}

// The key that an index or id maps to; nothing if there is no such member.
inline std::optional<std::string> keyIn(const json11::Json& object,
                                        const char* prefix,
                                        int number) {
    std::string key = indexedKey(prefix, number);
    if (object.object_items().count(key) == 0) {
        return std::nullopt;
    }
    return key;
}

}  // namespace qvgraph

#endif  // QVGRAPH_SURVEY_KEYS_H_
