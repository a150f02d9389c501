#include <vector>

#include "check/rules.h"
#include "check/stream_guesses.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

void noConsumer(const Model& model, Reporter* report) {
    for (const Pipe& pipe : model.pipes()) {
        if (!hasLooseEnds(pipe)) {
            continue;
        }
        const std::vector<StreamGuess> guesses = guessesOf(pipe);
        for (size_t i = 0; i < pipe.streams.size(); ++i) {
            const Stream& stream = pipe.streams[i];
            const StreamGuess& guess = guesses[i];
            if (stream.consumers.empty() && !guess.isUncertain && !guess.isIntended) {
                report
                    ->atValue(nameLocation(pipe, stream.producers[0]),
                              "stream " + quoted(stream.name) +
                                  " has no consumer in this pipe: no node receives its data")
                    .hint = "add a consumer, unless something outside the pipe consumes it";
            }
        }
    }
}

}  // namespace

constinit const Rule NO_CONSUMER = {
    .code = "no-consumer",
    .severity = Severity::Note,
    .family = "wiring",
    .title = "A stream has no consumer in its pipe",
    .explanation =
        "No input of the pipe has the name of this output. This may be intentional if something "
        "outside the graph consumes the stream.",
    .device = "The node is set up, and no node of the pipe receives its data.",
    .fix = "Add a node that consumes the stream, or leave it as it is.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "frames", "stream_fmt_out": "f"}
  }
}})",
            .fixed = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "frames", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "frames", "stream_fmt_in": "f"}
  }
}})",
        },
    .scope = Scope::Stream,
    .find = noConsumer,
};

}  // namespace qvgraph
