#include "render/drawing.h"

#include <unordered_map>
#include <variant>

#include "check/subject.h"
#include "check/wires.h"
#include "render/text.h"

namespace qvgraph {

namespace {

using Stored = Options::mapped_type;

// A pointer up to its first `depth` names: "/pipe_0/node_1" of
// "/pipe_0/node_1/stream_opts/stream_input".
std::string firstOf(const std::string& pointer, int depth) {
    size_t end = 0;
    for (int i = 0; i < depth && end != std::string::npos; ++i) {
        end = pointer.find('/', end + 1);
    }
    return pointer.substr(0, end);
}

bool takesNewestOnly(const NodeSubject& node, const DeclaredEnd& end) {
    const auto mode = node.node->stored.find("stream_mode_in");
    if (mode != node.node->stored.end() && mode->second == Stored("remain_newest")) {
        return true;
    }
    // A class may set the flag of its own accord.
    const auto index = static_cast<size_t>(&end - node.inputs.streams.data());
    const std::vector<StreamEnd>& wired = node.node->inputs;
    return index < node.inputs.ends.size() && index < wired.size() && wired[index].remainNewest;
}

// Where the findings at a place belong.
struct Target {
    Findings* thing = nullptr;   // a node, an option set or one end of a stream
    Findings* stream = nullptr;  // the whole stream, if the place is an end of one
};

// By the pointers of places; of an end by those of its name and its format.
using Targets = std::unordered_map<std::string, Target>;

// Makes a pipe's part of the drawing, and tells where findings belong in it.
class PipeArranger {
public:
    PipeArranger(const PipeSubject& subject, DrawnPipe* drawn, Targets* targets)
        : mSubject(subject), mDrawn(*drawn), mTargets(*targets) {}

    void arrange() {
        arrangeSets(mSubject.pipe->executors, mSubject.executors, &mDrawn.executors);
        arrangeSets(mSubject.pipe->links, mSubject.links, &mDrawn.links);
        mDrawn.nodes.resize(mSubject.nodes.size());
        for (size_t i = 0; i < mSubject.nodes.size(); ++i) {
            mDrawn.nodes[i].node = mSubject.nodes[i].node;
            mTargets[pointerTo(*mSubject.nodes[i].value)] = {&mDrawn.nodes[i].findings, nullptr};
        }
        const std::vector<Wire> wires = wiresOf(mSubject);
        mDrawn.streams.resize(wires.size());
        for (size_t i = 0; i < wires.size(); ++i) {
            mDrawn.streams[i].name = wires[i].name;
            arrangeEnds(wires[i].producers, &mDrawn.streams[i], &mDrawn.streams[i].producers);
            arrangeEnds(wires[i].consumers, &mDrawn.streams[i], &mDrawn.streams[i].consumers);
        }
    }

private:
    // The survey visits the members in the same order.
    void arrangeSets(const std::vector<OptionSet>& sets,
                     const std::vector<const Value*>& members,
                     std::vector<DrawnSet>* drawn) {
        drawn->resize(sets.size());
        for (size_t i = 0; i < sets.size(); ++i) {
            (*drawn)[i].set = &sets[i];
            mTargets[pointerTo(*members[i])] = {&(*drawn)[i].findings, nullptr};
        }
    }

    void arrangeEnds(const std::vector<WireEnd>& ends,
                     DrawnStream* stream,
                     std::vector<DrawnEnd>* drawn) {
        drawn->resize(ends.size());
        for (size_t i = 0; i < ends.size(); ++i) {
            const NodeSubject& node = mSubject.nodes[ends[i].node];
            const DeclaredEnd& declared = *ends[i].end;
            DrawnEnd& end = (*drawn)[i];
            end.node = ends[i].node;
            end.format = declared.format;
            end.newestOnly = ends[i].side == &node.inputs && takesNewestOnly(node, declared);
            for (const Value* place : {declared.place, declared.formatPlace}) {
                if (place != nullptr) {
                    mTargets.emplace(pointerTo(*place), Target{&end.findings, &stream->findings});
                }
            }
        }
    }

    const PipeSubject& mSubject;
    DrawnPipe& mDrawn;
    Targets& mTargets;
};

bool concernsWholeStream(const Finding& finding) {
    return finding.code == "no-producer" || finding.code == "no-consumer";
}

void place(const Finding& finding, const Targets& targets, DrawnPipe* pipe) {
    pipe->allFindings.push_back(&finding);
    auto target = targets.find(finding.pointer);
    if (target == targets.end()) {
        target = targets.find(firstOf(finding.pointer, 2));
    }
    if (target == targets.end()) {
        pipe->findings.push_back(&finding);
    } else if (target->second.stream != nullptr && concernsWholeStream(finding)) {
        target->second.stream->push_back(&finding);
    } else {
        target->second.thing->push_back(&finding);
    }
}

std::string withoutFolder(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

bool isWanted(const Pipe& pipe, std::optional<int> wanted) {
    return !wanted || pipe.index == *wanted;
}

}  // namespace

Drawing drawingOf(const CheckedFile& file, std::optional<int> pipe) {
    Drawing drawing;
    drawing.file = &file;
    drawing.title = printable(withoutFolder(file.name));

    std::unordered_map<std::string, size_t> pipes;  // by their pointers
    for (const Pipe& each : file.survey.pipes) {
        if (isWanted(each, pipe)) {
            pipes[pointerTo(*file.source->root()->member(*each.key))] = drawing.pipes.size();
            drawing.pipes.emplace_back().pipe = &each;
        }
    }

    const std::string noError;
    const Subject subject(*file.source, file.survey, noError);
    Targets targets;
    for (const PipeSubject& each : subject.pipes()) {
        if (isWanted(*each.pipe, pipe)) {
            DrawnPipe* drawn = &drawing.pipes[pipes[pointerTo(*each.value)]];
            PipeArranger(each, drawn, &targets).arrange();
        }
    }

    for (const Finding& finding : file.findings) {
        const auto found = pipes.find(firstOf(finding.pointer, 1));
        if (found != pipes.end()) {
            place(finding, targets, &drawing.pipes[found->second]);
        } else if (!pipe || finding.pointer.empty()) {
            drawing.findings.push_back(&finding);
        }
    }
    return drawing;
}

}  // namespace qvgraph
