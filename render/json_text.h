// JSON as reports write it; part of render.
#ifndef QVGRAPH_RENDER_JSON_TEXT_H_
#define QVGRAPH_RENDER_JSON_TEXT_H_

#include <nlohmann/json.hpp>
#include <ostream>

namespace qvgraph {

using Json = nlohmann::ordered_json;

// An array of what `toJson` makes of each item.
template <typename Items, typename ToJson>
Json jsonArrayOf(const Items& items, ToJson toJson) {
    Json array = Json::array();
    for (const auto& item : items) {
        array.push_back(toJson(item));
    }
    return array;
}

// Writes a report, indented, with a newline behind it. It is valid UTF-8: bytes
// that are not become U+FFFD. What printable() (render/text.h) would not let
// through is escaped, so that a reader gets it and a terminal does not.
void writeJson(std::ostream& out, const Json& report);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_JSON_TEXT_H_
