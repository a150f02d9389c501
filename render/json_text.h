// JSON in reports; part of render.
#ifndef QVGRAPH_RENDER_JSON_TEXT_H_
#define QVGRAPH_RENDER_JSON_TEXT_H_

#include <nlohmann/json.hpp>
#include <ostream>

namespace qvgraph {

using Json = nlohmann::ordered_json;

// An array of the results of `toJson` for each item.
template <typename Items, typename ToJson>
Json jsonArrayOf(const Items& items, ToJson toJson) {
    Json array = Json::array();
    for (const auto& item : items) {
        array.push_back(toJson(item));
    }
    return array;
}

// Writes an indented report and a newline. The output is valid UTF-8: invalid
// bytes become U+FFFD. Characters that are not printable() (render/text.h) are
// escaped: a JSON reader receives them, a terminal does not.
void writeJson(std::ostream& out, const Json& report);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_JSON_TEXT_H_
