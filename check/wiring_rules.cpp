// What is wrong with how the nodes of a pipe are connected.
#include <algorithm>
#include <map>
#include <string>

#include "check/graph.h"
#include "check/node_access.h"
#include "check/rule.h"
#include "check/wires.h"
#include "check/words.h"

namespace qvgraph {

namespace {

// The most places that are added to one finding.
const size_t MOST_RELATED = 8;

std::string nodeOf(const PipeSubject& pipe, const WireEnd& end) {
    return quoted(pipe.nodes[end.node].value->key);
}

template <typename Function>
void forEachWire(const Subject& subject, Function function) {
    for (const PipeSubject& pipe : subject.pipes()) {
        for (const Wire& wire : pipe.wires) {
            function(pipe, wire);
        }
    }
}

// ---- two-producers --------------------------------------------------------------

void twoProducers(const Subject& subject, Reporter* report) {
    forEachWire(subject, [report](const PipeSubject& pipe, const Wire& wire) {
        for (size_t i = 1; i < wire.producers.size(); ++i) {
            const WireEnd& first = wire.producers[0];
            const WireEnd& end = wire.producers[i];
            const bool isSame = first.node == end.node;
            Finding& finding = report->atValue(
                placeOf(pipe, end),
                "the stream " + quoted(wire.name) + " is given by " +
                    (isSame ? "this node" : nodeOf(pipe, first)) +
                    " already: it is refused, the node is not initialised, and success is reported");
            finding.hint = "give each stream a name of its own";
            finding.related.push_back({"given here first", placeOf(pipe, first).span});
        }
    });
}

const Rule TWO_PRODUCERS = {
    "two-producers",
    Severity::Error,
    "wiring",
    "Two outputs of a pipe give a stream of the same name",
    "A stream has one producer. Of several outputs with one name, the first that is set up, in "
    "the byte order of the nodes' keys, becomes its producer.",
    "The task graph refuses the second; the rest of that node's set-up is left out and success "
    "reported: the node is never initialised.",
    "Give each stream a name of its own.",
    {R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera#left"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Camera#right"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_2": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
  }
}})",
     R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera#left"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Camera#right"},
    "stream_opts": {"stream_output": "b", "stream_fmt_out": "f"}
  },
  "node_2": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {
      "stream_input_0": "a", "stream_fmt_in_0": "f",
      "stream_input_1": "b", "stream_fmt_in_1": "f"
    }
  }
}})",
     {}},
    {},
    twoProducers};

// ---- no-producer, no-consumer -----------------------------------------------------

// In which pipe each stream is given first.
std::map<std::string, std::string> pipesByStream(const Subject& subject) {
    std::map<std::string, std::string> pipes;
    forEachWire(subject, [&](const PipeSubject& pipe, const Wire& wire) {
        if (!wire.producers.empty()) {
            pipes.emplace(wire.name, pipe.value->key);
        }
    });
    return pipes;
}

std::string hintFor(const Wire& wire, const std::map<std::string, std::string>& pipes) {
    if (!wire.meant.empty()) {
        return "write " + quoted(wire.meant) + ", if that stream is meant";
    }
    const auto other = pipes.find(wire.name);
    if (other != pipes.end()) {
        return "give it in this pipe as well: streams do not cross pipes, and this one is in " +
               quoted(other->second);
    }
    return "name a stream that a node of the pipe gives, or add a node that gives it";
}

void noProducer(const Subject& subject, Reporter* report) {
    const std::map<std::string, std::string> pipes = pipesByStream(subject);
    forEachWire(subject, [&](const PipeSubject& pipe, const Wire& wire) {
        if (!wire.producers.empty() || wire.isUncertain) {
            return;
        }
        Finding& finding =
            report->atValue(placeOf(pipe, wire.consumers[0]),
                            "no node of the pipe gives the stream " + quoted(wire.name));
        finding.hint = hintFor(wire, pipes);
        for (size_t i = 1; i < std::min(wire.consumers.size(), MOST_RELATED); ++i) {
            finding.related.push_back(
                {"taken here as well", placeOf(pipe, wire.consumers[i]).span});
        }
    });
}

const Rule NO_PRODUCER = {
    "no-producer",
    Severity::Warning,
    "wiring",
    "A stream is taken that no node of the pipe gives",
    "An input is bound to a stream by its name, letter by letter. No output of the same pipe has "
    "this name; streams do not cross pipes.",
    "The node is set up and waits for data that never comes.",
    "Correct the name, or add a node that gives the stream.",
    {R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "frames", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "frame", "stream_fmt_in": "f"}
  }
}})",
     R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "frames", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "frames", "stream_fmt_in": "f"}
  }
}})",
     {}},
    {},
    noProducer};

void noConsumer(const Subject& subject, Reporter* report) {
    forEachWire(subject, [report](const PipeSubject& pipe, const Wire& wire) {
        if (wire.consumers.empty() && !wire.isUncertain && !wire.isMeant) {
            report
                ->atValue(placeOf(pipe, wire.producers[0]),
                          "no node of the pipe takes the stream " + quoted(wire.name))
                .hint = "add a node that takes it, unless something outside the pipe does";
        }
    });
}

const Rule NO_CONSUMER = {
    "no-consumer",
    Severity::Note,
    "wiring",
    "A stream is given that no node of the pipe takes",
    "No input of the pipe has the name of this output. That may be on purpose, where something "
    "outside the graph takes the stream.",
    "The node is set up; what it gives goes nowhere in the pipe.",
    "Add a node that takes the stream, or leave it as it is.",
    {R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "frames", "stream_fmt_out": "f"}
  }
}})",
     R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "frames", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "frames", "stream_fmt_in": "f"}
  }
}})",
     {}},
    {},
    noConsumer};

// ---- format-mismatch -----------------------------------------------------------------

// Whether names and formats of a node are paired as they are meant.
bool isPaired(const Side& side) {
    const bool hasFormats =
        side.managers < 2 || side.formatMembers.size() >= side.nameMembers.size();
    return hasFormats && !side.differing;
}

const Value& formatPlaceOf(const PipeSubject& pipe, const WireEnd& end) {
    return end.end->formatPlace != nullptr ? *end.end->formatPlace : placeOf(pipe, end);
}

// The ends that take a stream with another format than `given`, and whose
// format is known.
std::vector<const WireEnd*> differing(const Wire& wire, const WireEnd& given) {
    std::vector<const WireEnd*> ends;
    for (const WireEnd& taken : wire.consumers) {
        if (taken.end->format && *taken.end->format != *given.end->format &&
            isPaired(*taken.side)) {
            ends.push_back(&taken);
        }
    }
    return ends;
}

// Several that take it with one and the same format are probably right.
bool isOutvoted(const Wire& wire, const std::vector<const WireEnd*>& differing) {
    return differing.size() > 1 && differing.size() == wire.consumers.size() &&
           std::all_of(differing.begin(), differing.end(), [&](const WireEnd* end) {
               return *end->end->format == *differing[0]->end->format;
           });
}

void reportGiven(const PipeSubject& pipe,
                 const Wire& wire,
                 const std::vector<const WireEnd*>& taken,
                 Reporter* report) {
    const WireEnd& given = wire.producers[0];
    Finding& finding =
        report->atValue(formatPlaceOf(pipe, given),
                        "the stream " + quoted(wire.name) + " is given as " +
                            quoted(*given.end->format) + ", but " + counted(taken.size(), "input") +
                            " take it as " + quoted(*taken[0]->end->format));
    finding.hint = "give all ends of the stream one format";
    for (size_t i = 0; i < std::min(taken.size(), MOST_RELATED); ++i) {
        finding.related.push_back(
            {"taken here by " + nodeOf(pipe, *taken[i]), formatPlaceOf(pipe, *taken[i]).span});
    }
}

void reportTaken(const PipeSubject& pipe,
                 const Wire& wire,
                 const WireEnd& taken,
                 Reporter* report) {
    const WireEnd& given = wire.producers[0];
    Finding& finding = report->atValue(
        formatPlaceOf(pipe, taken),
        "the stream " + quoted(wire.name) + " is taken as " + quoted(*taken.end->format) +
            ", but " + nodeOf(pipe, given) + " gives it as " + quoted(*given.end->format));
    finding.hint = "give both ends of the stream one format";
    finding.related.push_back({"its format is given here", formatPlaceOf(pipe, given).span});
}

void formatMismatch(const Subject& subject, Reporter* report) {
    forEachWire(subject, [report](const PipeSubject& pipe, const Wire& wire) {
        const bool isGiven = !wire.producers.empty() && wire.producers[0].end->format &&
                             isPaired(*wire.producers[0].side);
        if (!isGiven) {
            return;
        }
        const auto ends = differing(wire, wire.producers[0]);
        if (isOutvoted(wire, ends)) {
            reportGiven(pipe, wire, ends, report);
            return;
        }
        for (const WireEnd* taken : ends) {
            reportTaken(pipe, wire, *taken, report);
        }
    });
}

const Rule FORMAT_MISMATCH = {
    "format-mismatch",
    Severity::Warning,
    "wiring",
    "A stream is taken with another format than it is given",
    "Each end of a stream has a format of its own, and nothing compares them when the graph is "
    "set up.",
    "Both nodes are set up, and the consumer reads the data as what they are not.",
    "Give both ends one format, or put a node between them that converts it.",
    {R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "image:nv12"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "image:rgb24"}
  }
}})",
     R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "image:nv12"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "image:nv12"}
  }
}})",
     {}},
    {},
    formatMismatch};

// ---- self-loop, cycle -------------------------------------------------------------------

void selfLoop(const Subject& subject, Reporter* report) {
    forEachWire(subject, [report](const PipeSubject& pipe, const Wire& wire) {
        std::map<size_t, const WireEnd*> givers;
        for (const WireEnd& given : wire.producers) {
            givers.emplace(given.node, &given);
        }
        for (const WireEnd& taken : wire.consumers) {
            const auto giver = givers.find(taken.node);
            if (giver == givers.end()) {
                continue;
            }
            Finding& finding = report->atValue(placeOf(pipe, taken),
                                               nodeOf(pipe, taken) + " takes the stream " +
                                                   quoted(wire.name) + " that it gives itself");
            finding.hint = "take the stream of another node";
            finding.related.push_back({"given here", placeOf(pipe, *giver->second).span});
        }
    });
}

const Rule SELF_LOOP = {
    "self-loop",
    Severity::Warning,
    "wiring",
    "A node takes a stream that it gives itself",
    "An input and an output of one node have the same name.",
    "The node is set up, and waits for itself unless its class is made for that.",
    "Take the stream of another node.",
    {R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Filter"},
    "stream_opts": {
      "stream_input": "a", "stream_fmt_in": "f",
      "stream_output": "a", "stream_fmt_out": "f"
    }
  }
}})",
     R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Filter"},
    "stream_opts": {
      "stream_input": "b", "stream_fmt_in": "f",
      "stream_output": "a", "stream_fmt_out": "f"
    }
  },
  "node_1": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "b", "stream_fmt_out": "f"}
  },
  "node_2": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
  }
}})",
     {}},
    {},
    selfLoop};

// For each node, the wires that lead from it to others.
struct Hop {
    size_t to = 0;
    const WireEnd* taken = nullptr;
    const Wire* wire = nullptr;
};

std::vector<std::vector<Hop>> hopsOf(const PipeSubject& pipe) {
    std::vector<std::vector<Hop>> hops(pipe.nodes.size());
    for (const Wire& wire : pipe.wires) {
        for (const WireEnd& taken : wire.consumers) {
            if (!wire.producers.empty() && wire.producers[0].node != taken.node) {
                hops[wire.producers[0].node].push_back({taken.node, &taken, &wire});
            }
        }
    }
    return hops;
}

Edges edgesOf(const std::vector<std::vector<Hop>>& hops) {
    Edges edges(hops.size());
    for (size_t i = 0; i < hops.size(); ++i) {
        for (const Hop& hop : hops[i]) {
            edges[i].push_back(hop.to);
        }
    }
    return edges;
}

const Hop& hopBetween(const std::vector<std::vector<Hop>>& hops, size_t from, size_t to) {
    return *std::find_if(
        hops[from].begin(), hops[from].end(), [to](const Hop& hop) { return hop.to == to; });
}

// `path` begins and ends with the same node.
void reportCycle(const PipeSubject& pipe,
                 const std::vector<std::vector<Hop>>& hops,
                 const std::vector<size_t>& path,
                 Reporter* report) {
    std::string text;
    for (size_t i = 0; i < path.size(); ++i) {
        const bool isShown = i < MOST_RELATED || i + 1 == path.size();
        if (isShown) {
            text += (i == 0 ? "" : " -> ") + quoted(pipe.nodes[path[i]].value->key);
        } else if (i == MOST_RELATED) {
            text += " -> ...";
        }
    }
    const Hop& last = hopBetween(hops, path[path.size() - 2], path.back());
    Finding& finding =
        report->atValue(placeOf(pipe, *last.taken),
                        counted(path.size() - 1, "node") + " wait for each other: " + text);
    finding.hint = "break the cycle, unless one of the classes is made for it";
    for (size_t i = 0; i + 2 < path.size() && i < MOST_RELATED; ++i) {
        const Hop& hop = hopBetween(hops, path[i], path[i + 1]);
        finding.related.push_back({nodeOf(pipe, *hop.taken) + " takes " + quoted(hop.wire->name),
                                   placeOf(pipe, *hop.taken).span});
    }
}

void cycle(const Subject& subject, Reporter* report) {
    for (const PipeSubject& pipe : subject.pipes()) {
        const auto hops = hopsOf(pipe);
        for (const std::vector<size_t>& path : cyclesIn(edgesOf(hops))) {
            reportCycle(pipe, hops, path, report);
        }
    }
}

const Rule CYCLE = {
    "cycle",
    Severity::Warning,
    "wiring",
    "Nodes take each other's streams in a circle",
    "Following the streams from node to node leads back to where it began. Of each group of "
    "nodes that lead to each other, one shortest circle is told.",
    "The nodes are set up, and each waits for the other unless one of the classes is made for "
    "that.",
    "Break the circle.",
    {R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Filter#0"},
    "stream_opts": {
      "stream_input": "b", "stream_fmt_in": "f",
      "stream_output": "a", "stream_fmt_out": "f"
    }
  },
  "node_1": {
    "node_opts": {"node_name": "Filter#1"},
    "stream_opts": {
      "stream_input": "a", "stream_fmt_in": "f",
      "stream_output": "b", "stream_fmt_out": "f"
    }
  }
}})",
     R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Filter"},
    "stream_opts": {
      "stream_input": "a", "stream_fmt_in": "f",
      "stream_output": "b", "stream_fmt_out": "f"
    }
  },
  "node_2": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}
  }
}})",
     {}},
    {},
    cycle};

// ---- disconnected --------------------------------------------------------------------------

// A group by its first nodes.
std::string textOfGroup(const PipeSubject& pipe, const std::vector<size_t>& group) {
    std::vector<std::string> keys;
    keys.reserve(group.size());
    for (const size_t node : group) {
        keys.push_back(quoted(pipe.nodes[node].value->key));
    }
    return '(' + listOf(keys, 4) + ')';
}

// Whether all is known that may connect nodes.
bool knowsEveryStream(const PipeSubject& pipe) {
    return knowsEvery(&NodeSubject::inputs, pipe) && knowsEvery(&NodeSubject::outputs, pipe) &&
           std::none_of(pipe.wires.begin(), pipe.wires.end(), [](const Wire& wire) {
               return wire.isUncertain || wire.producers.empty();
           });
}

// The groups of at least two nodes: one by itself has streams that nobody takes.
std::vector<std::vector<size_t>> connectedGroups(const PipeSubject& pipe) {
    Edges edges(pipe.nodes.size());
    for (const Wire& wire : pipe.wires) {
        const size_t first = wire.producers[0].node;
        for (const auto* ends : {&wire.producers, &wire.consumers}) {
            for (const WireEnd& end : *ends) {
                edges[first].push_back(end.node);
            }
        }
    }
    std::vector<std::vector<size_t>> groups = groupsIn(edges);
    const auto isAlone = [](const std::vector<size_t>& group) { return group.size() == 1; };
    groups.erase(std::remove_if(groups.begin(), groups.end(), isAlone), groups.end());
    return groups;
}

void disconnected(const Subject& subject, Reporter* report) {
    for (const PipeSubject& pipe : subject.pipes()) {
        if (!knowsEveryStream(pipe)) {
            continue;
        }
        const auto groups = connectedGroups(pipe);
        if (groups.size() < 2) {
            continue;
        }
        std::vector<std::string> texts;
        texts.reserve(groups.size());
        for (const std::vector<size_t>& group : groups) {
            texts.push_back(textOfGroup(pipe, group));
        }
        report->atKey(*pipe.value, "no stream connects these groups of nodes: " + listOf(texts, 4))
            .hint = "connect them, unless they have nothing to do with each other";
    }
}

const Rule DISCONNECTED = {
    "disconnected",
    Severity::Note,
    "wiring",
    "A pipe falls into groups of nodes that no stream connects",
    "Every stream of the pipe that is taken is given, but following the streams, forth or back, "
    "does not lead from every node to every other. Nodes whose streams nobody takes are left "
    "out.",
    "The groups are set up in one task graph and run beside each other.",
    "Connect the groups, give each a pipe of its own, or leave them as they are.",
    {R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
  },
  "node_2": {
    "node_opts": {"node_name": "Microphone"},
    "stream_opts": {"stream_output": "b", "stream_fmt_out": "f"}
  },
  "node_3": {
    "node_opts": {"node_name": "Speaker"},
    "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}
  }
}})",
     R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
  }
},
"pipe_1": {
  "node_2": {
    "node_opts": {"node_name": "Microphone"},
    "stream_opts": {"stream_output": "b", "stream_fmt_out": "f"}
  },
  "node_3": {
    "node_opts": {"node_name": "Speaker"},
    "stream_opts": {"stream_input": "b", "stream_fmt_in": "f"}
  }
}})",
     {}},
    {},
    disconnected};

}  // namespace

std::vector<Rule> wiringRules() {
    return {
        TWO_PRODUCERS, NO_PRODUCER, NO_CONSUMER, FORMAT_MISMATCH, SELF_LOOP, CYCLE, DISCONNECTED};
}

}  // namespace qvgraph
