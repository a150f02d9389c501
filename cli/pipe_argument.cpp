#include "cli/pipe_argument.h"

#include <limits>
#include <string>

#include "cli/number.h"

namespace qvgraph {

void addPipeOption(Verb* verb, std::optional<int>* pipe) {
    verb->addParsed(
        "--pipe",
        [pipe](const std::string& text) {
            *pipe = numberIn(text, 0, std::numeric_limits<int>::max());
            if (!*pipe) {
                throw UsageError("--pipe: '" + text + "' is no index from 0");
            }
        },
        "Only the pipe with this index, from 0",
        "N");
}

}  // namespace qvgraph
