#include <algorithm>
#include <vector>

#include "check/rules.h"
#include "check/stream_naming.h"
#include "check/visiting.h"
#include "check/wording.h"

namespace qvgraph {

namespace {

// Whether the names and formats of a node are paired as intended.
bool isPaired(const Pipe& pipe, const Endpoint& endpoint) {
    const Side& side = *endpoint.side;
    const bool hasFormats =
        side.managers < 2 || side.formatMembers.size() >= side.nameMembers.size();
    return hasFormats && !differingPair(pipe.nodes[endpoint.node], side);
}

const Value& formatMemberOf(const Pipe& pipe, const Endpoint& end) {
    return end.end->formatOption != nullptr ? *end.end->formatOption->member
                                            : nameLocation(pipe, end);
}

// Whether the format of an end is certain.
bool isFormatKnown(const Pipe& pipe, const Endpoint& endpoint) {
    return endpoint.end->format != nullptr && isPaired(pipe, endpoint);
}

// The consumers whose format is certain and different from the producer's.
std::vector<const Endpoint*> differingConsumers(const Pipe& pipe,
                                                const Stream& stream,
                                                const Endpoint& producer) {
    std::vector<const Endpoint*> differing;
    for (const Endpoint& consumer : stream.consumers) {
        if (isFormatKnown(pipe, consumer) && *consumer.end->format != *producer.end->format) {
            differing.push_back(&consumer);
        }
    }
    return differing;
}

// Several consumers that all have the same format are probably right.
bool isOutvoted(const Stream& stream, const std::vector<const Endpoint*>& differing) {
    return differing.size() > 1 && differing.size() == stream.consumers.size() &&
           std::ranges::all_of(differing, [&](const Endpoint* consumer) {
               return *consumer->end->format == *differing[0]->end->format;
           });
}

void reportProducer(const Pipe& pipe,
                    const Stream& stream,
                    const std::vector<const Endpoint*>& consumers,
                    Reporter* report) {
    const Endpoint& producer = stream.producers[0];
    Finding& finding = report->atValue(
        formatMemberOf(pipe, producer),
        "stream " + quoted(stream.name) + " is produced as " + quoted(*producer.end->format) +
            ", but " + counted(consumers.size(), "input") + " consume it as " +
            quoted(*consumers[0]->end->format) + ": the device does not convert it");
    finding.hint = "use the same format at all ends of the stream";
    for (size_t i = 0; i < std::min(consumers.size(), MAX_RELATED); ++i) {
        finding.related.push_back({"consumed here by " + nodeOf(pipe, *consumers[i]),
                                   formatMemberOf(pipe, *consumers[i]).span});
    }
}

void reportConsumer(const Pipe& pipe,
                    const Stream& stream,
                    const Endpoint& consumer,
                    Reporter* report) {
    const Endpoint& producer = stream.producers[0];
    Finding& finding = report->atValue(
        formatMemberOf(pipe, consumer),
        "stream " + quoted(stream.name) + " is consumed as " + quoted(*consumer.end->format) +
            ", but " + nodeOf(pipe, producer) + " produces it as " + quoted(*producer.end->format) +
            ": the device does not convert it");
    finding.hint = "use the same format at both ends of the stream";
    finding.related.push_back({"format of the producer", formatMemberOf(pipe, producer).span});
}

void formatMismatch(const Model& model, Reporter* report) {
    forEachStream(model, [report](const Pipe& pipe, const Stream& stream) {
        if (stream.producers.empty() || !isFormatKnown(pipe, stream.producers[0])) {
            return;
        }
        const auto differing = differingConsumers(pipe, stream, stream.producers[0]);
        if (isOutvoted(stream, differing)) {
            reportProducer(pipe, stream, differing, report);
            return;
        }
        for (const Endpoint* consumer : differing) {
            reportConsumer(pipe, stream, *consumer, report);
        }
    });
}

}  // namespace

constinit const Rule FORMAT_MISMATCH = {
    .code = "format-mismatch",
    .severity = Severity::Warning,
    .family = "wiring",
    .title = "The ends of a stream have different formats",
    .explanation =
        "Each end of a stream declares its own format, and set-up does not compare them.",
    .device =
        "The device sets up both nodes and does not convert the data, so the consumer "
        "misinterprets it.",
    .fix = "Use the same format at both ends, or add a node between them that converts the data.",
    .example =
        {
            .wrong = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "image:nv12"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "image:rgb24"}
  }
}})",
            .fixed = R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "image:nv12"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "image:nv12"}
  }
}})",
        },
    .find = formatMismatch,
};

}  // namespace qvgraph
