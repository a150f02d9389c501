#include "model/model.h"

#include <utility>

#include "model/comments.h"
#include "model/nodes.h"
#include "model/options.h"
#include "model/streams.h"

namespace qvgraph {

namespace {

OptionSet optionSetOf(const Value& value, const Value* object, SurveyedOptionSet surveyed) {
    OptionSet set;
    static_cast<SurveyedOptionSet&>(set) = std::move(surveyed);
    set.value = &value;
    set.canonical = set.key == set.member;
    set.object = optionObjectOf(object, &set.conversions);
    return set;
}

// The survey visits the members of a pipe in the same order.
Pipe pipeOf(const Value& value, SurveyedPipe surveyed) {
    Pipe pipe;
    pipe.value = &value;
    pipe.index = surveyed.index;
    pipe.threads = surveyed.threads;
    pipe.linkMode = std::move(surveyed.linkMode);
    const Members executors = membersOf(&value, "executor_");
    for (size_t i = 0; i < executors.size(); ++i) {
        pipe.executors.push_back(optionSetOf(*executors[i],
                                             executors[i]->member("executor_opts"),
                                             std::move(surveyed.executors[i])));
    }
    const Members links = membersOf(&value, "link_");
    for (size_t i = 0; i < links.size(); ++i) {
        pipe.links.push_back(optionSetOf(*links[i], links[i], std::move(surveyed.links[i])));
    }
    const Members nodes = membersOf(&value, "node_");
    pipe.nodes.reserve(nodes.size());
    for (size_t i = 0; i < nodes.size(); ++i) {
        pipe.nodes.push_back(nodeOf(*nodes[i], std::move(surveyed.nodes[i])));
    }
    pipe.streams = streamsOf(pipe.nodes);
    return pipe;
}

}  // namespace

Model::Model(ModelParts parts)
    : mSource(std::move(parts.source)),
      mLoads(parts.loads),
      mJsonError(std::move(parts.jsonError)),
      mNodeClasses(std::move(parts.survey.nodeClasses)),
      mComments(commentsOf(*mSource)) {
    mPipes.reserve(parts.survey.pipes.size());
    for (SurveyedPipe& pipe : parts.survey.pipes) {
        const Value& value = *mSource->root()->member(*pipe.key);
        mPipes.push_back(pipeOf(value, std::move(pipe)));
    }
}

}  // namespace qvgraph
