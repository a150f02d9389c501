// Names with an index, and where they lead; part of the survey.
#ifndef QVGRAPH_SURVEY_KEYS_H_
#define QVGRAPH_SURVEY_KEYS_H_

#include <json11.hpp>
#include <optional>
#include <string>

namespace qvgraph {

inline bool hasPrefix(const std::string& key, const char* prefix) {
    return key.rfind(prefix, 0) == 0;
}

inline std::string indexedKey(const char* prefix, int number) {
    return prefix + std::to_string(number);
}

// The key that an index or id leads to; nothing when there is no such member.
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
