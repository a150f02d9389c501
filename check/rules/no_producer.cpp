#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "check/rules.h"
#include "check/stream_guesses.h"
#include "check/visiting.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

// The pipe that produces each stream first.
std::map<std::string_view, std::string_view> pipesByStream(const Model& model) {
    std::map<std::string_view, std::string_view> pipes;
    forEachStream(model, [&](const Pipe& pipe, const Stream& stream) {
        if (!stream.producers.empty()) {
            pipes.emplace(stream.name, pipe.value->key);
        }
    });
    return pipes;
}

std::string hintFor(const Stream& stream,
                    const StreamGuess& guess,
                    const std::map<std::string_view, std::string_view>& pipes) {
    if (!guess.intended.empty()) {
        return "write " + quoted(guess.intended) + " if you intended that stream";
    }
    const auto other = pipes.find(stream.name);
    if (other != pipes.end()) {
        return "produce it in this pipe as well: streams do not cross pipes, and its producer is "
               "in " +
               quoted(other->second);
    }
    return "name a stream that a node of the pipe produces, or add a producer";
}

void reportStream(const Pipe& pipe,
                  const Stream& stream,
                  const std::string& hint,
                  Reporter* report) {
    Finding& finding = report->atValue(
        nameLocation(pipe, stream.consumers[0]),
        "stream " + quoted(stream.name) + " has no producer in this pipe: no data ever arrives");
    finding.hint = hint;
    for (size_t i = 1; i < std::min(stream.consumers.size(), MAX_RELATED); ++i) {
        finding.related.push_back(
            {"also consumed here", nameLocation(pipe, stream.consumers[i]).span});
    }
}

void noProducer(const Model& model, Reporter* report) {
    const auto pipes = pipesByStream(model);
    for (const Pipe& pipe : model.pipes()) {
        if (!hasLooseEnds(pipe)) {
            continue;
        }
        const std::vector<StreamGuess> guesses = guessesOf(pipe);
        for (size_t i = 0; i < pipe.streams.size(); ++i) {
            const Stream& stream = pipe.streams[i];
            if (stream.producers.empty() && !guesses[i].isUncertain) {
                reportStream(pipe, stream, hintFor(stream, guesses[i], pipes), report);
            }
        }
    }
}

}  // namespace

constinit const Rule NO_PRODUCER = {
    .code = "no-producer",
    .severity = Severity::Warning,
    .family = "wiring",
    .title = "A stream has no producer in its pipe",
    .explanation =
        "The name of an input must be exactly the name of an output of the same pipe. No output "
        "of this pipe has the name, and streams do not cross pipes.",
    .device = "The node is set up and waits indefinitely for data.",
    .fix = "Correct the name, or add a node that produces the stream.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "frames", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "frame", "stream_fmt_in": "f"}
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
    .find = noProducer,
};

}  // namespace qvgraph
