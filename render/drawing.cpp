#include "render/drawing.h"

#include <unordered_map>

#include "check/rules.h"
#include "render/text.h"

namespace qvgraph {

namespace {

// A pointer up to its first `depth` tokens: "/pipe_0/node_1" of
// "/pipe_0/node_1/stream_opts/stream_input".
std::string firstOf(const std::string& pointer, int depth) {
    size_t end = 0;
    for (int i = 0; i < depth && end != std::string::npos; ++i) {
        end = pointer.find('/', end + 1);
    }
    return pointer.substr(0, end);
}

// The lists that receive the findings at a location.
struct Target {
    Findings* thing = nullptr;   // a node, an option set or one end of a stream
    Findings* stream = nullptr;  // the entire stream, if the location is an end of one
};

// By the pointers of locations. An end has two: those of its name and its format.
using Targets = std::unordered_map<std::string, Target>;

std::vector<DrawnSet> draw(const std::vector<OptionSet>& sets, Targets* targets) {
    std::vector<DrawnSet> drawn(sets.size());
    for (size_t i = 0; i < sets.size(); ++i) {
        drawn[i].set = &sets[i];
        (*targets)[pointerTo(*sets[i].value)] = {&drawn[i].findings, nullptr};
    }
    return drawn;
}

std::vector<DrawnNode> draw(const std::vector<Node>& nodes, Targets* targets) {
    std::vector<DrawnNode> drawn(nodes.size());
    for (size_t i = 0; i < nodes.size(); ++i) {
        drawn[i].node = &nodes[i];
        (*targets)[pointerTo(*nodes[i].value)] = {&drawn[i].findings, nullptr};
    }
    return drawn;
}

std::vector<DrawnEnd> draw(const std::vector<Endpoint>& endpoints,
                           Findings* ofStream,
                           Targets* targets) {
    std::vector<DrawnEnd> drawn(endpoints.size());
    for (size_t i = 0; i < endpoints.size(); ++i) {
        drawn[i].node = endpoints[i].node;
        drawn[i].end = endpoints[i].end;
        for (const Option* option : {drawn[i].end->nameOption, drawn[i].end->formatOption}) {
            if (option != nullptr) {
                targets->emplace(pointerTo(*option->member), Target{&drawn[i].findings, ofStream});
            }
        }
    }
    return drawn;
}

std::vector<DrawnStream> draw(const std::vector<Stream>& streams, Targets* targets) {
    std::vector<DrawnStream> drawn(streams.size());
    for (size_t i = 0; i < streams.size(); ++i) {
        drawn[i].stream = &streams[i];
        drawn[i].producers = draw(streams[i].producers, &drawn[i].findings, targets);
        drawn[i].consumers = draw(streams[i].consumers, &drawn[i].findings, targets);
    }
    return drawn;
}

DrawnPipe draw(const Pipe& pipe, Targets* targets) {
    DrawnPipe drawn;
    drawn.pipe = &pipe;
    drawn.executors = draw(pipe.executors, targets);
    drawn.links = draw(pipe.links, targets);
    drawn.nodes = draw(pipe.nodes, targets);
    drawn.streams = draw(pipe.streams, targets);
    return drawn;
}

bool appliesToStream(const Finding& finding) {
    const Rule* const rule = findRule(finding.code);
    return rule != nullptr && rule->scope == Scope::Stream;
}

void assign(const Finding& finding, const Targets& targets, DrawnPipe* pipe) {
    pipe->allFindings.push_back(&finding);
    auto target = targets.find(finding.pointer);
    if (target == targets.end()) {
        target = targets.find(firstOf(finding.pointer, 2));
    }
    if (target == targets.end()) {
        pipe->findings.push_back(&finding);
    } else if (target->second.stream != nullptr && appliesToStream(finding)) {
        target->second.stream->push_back(&finding);
    } else {
        target->second.thing->push_back(&finding);
    }
}

std::string withoutFolder(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

}  // namespace

Drawing drawingOf(const CheckedFile& file, std::optional<int> pipe) {
    Drawing drawing;
    drawing.file = &file;
    drawing.title = printable(withoutFolder(file.name));

    Targets targets;
    std::unordered_map<std::string, size_t> pipes;  // by their pointers
    for (const Pipe& each : file.model.pipes()) {
        if (!pipe || each.index == *pipe) {
            pipes[pointerTo(*each.value)] = drawing.pipes.size();
            drawing.pipes.push_back(draw(each, &targets));
        }
    }
    for (const Finding& finding : file.findings) {
        const auto found = pipes.find(firstOf(finding.pointer, 1));
        if (found != pipes.end()) {
            assign(finding, targets, &drawing.pipes[found->second]);
        } else if (!pipe || finding.pointer.empty()) {
            drawing.findings.push_back(&finding);
        }
    }
    return drawing;
}

}  // namespace qvgraph
