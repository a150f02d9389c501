// The modes of nodes' inputs.
#ifndef QVGRAPH_CHECK_STREAM_MODES_H_
#define QVGRAPH_CHECK_STREAM_MODES_H_

#include <optional>
#include <string_view>

#include "check/visiting.h"
#include "model/model.h"

namespace qvgraph {

// The only mode that has a meaning: the inputs keep the latest item only.
const std::string_view LATEST_ONLY = "remain_newest";

// The string of a mode; nothing if it is not stored as a string.
std::optional<std::string_view> modeIn(const Option& mode);

// Whether a mode was probably intended as LATEST_ONLY: it resembles it, or contains
// 'newest' or 'latest'.
bool isIntendedAsLatestOnly(std::string_view mode);

// Visits every "stream_mode_in" of nodes, except strings that are too long to be
// stored.
template <typename Function>
void forEachMode(const Model& model, Function function) {
    forEachNodeOptions(model, [&function](const Node& /*node*/, const OptionObject& object) {
        for (const Option& option : object.options) {
            const bool isTooLong = option.member->isString() && !option.stored;
            if (option.member->key == "stream_mode_in" && !isTooLong) {
                function(option);
            }
        }
    });
}

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_STREAM_MODES_H_
