#include "cli/pipe_argument.h"

#include <CLI/Error.hpp>
#include <limits>
#include <string>

#include "cli/number.h"

namespace qvgraph {

void addPipeOption(CLI::App* verb, std::optional<int>* pipe) {
    verb->add_option_function<std::string>(
            "--pipe",
            [pipe](const std::string& text) {
                *pipe = numberIn(text, 0, std::numeric_limits<int>::max());
                if (!*pipe) {
                    throw CLI::ValidationError("--pipe", "'" + text + "' is no index from 0");
                }
            },
            "Only the pipe with this index, from 0")
        ->type_name("N")
        ->option_text("N");
}

}  // namespace qvgraph
