#include "cli/pipe_argument.h"

#include <limits>

#include "cli/number.h"

namespace qvgraph {

namespace {

const int MAX_INDEX = std::numeric_limits<int>::max();

}  // namespace

void addPipeOption(Verb* verb, std::optional<int>* pipe, const std::string& description) {
    verb->addParsed(
        "--pipe",
        [pipe](const std::string& text) {
            *pipe = numberIn(text, 0, MAX_INDEX);
            if (!*pipe) {
                throw UsageError("--pipe: '" + text + "' is not a whole number from 0 to " +
                                 std::to_string(MAX_INDEX));
            }
        },
        description,
        "N");
}

}  // namespace qvgraph
