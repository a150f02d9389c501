// Sets one node up and records the outcome; part of the survey.
#ifndef QVGRAPH_SURVEY_NODE_SETUP_H_
#define QVGRAPH_SURVEY_NODE_SETUP_H_

#include <cstddef>
#include <string>
#include <vector>

#include "graph/qv_graph_parser.h"
#include "host/qv_host_task_graph.h"
#include "host/qv_lookup_scope.h"
#include "survey/survey_data.h"

namespace qvgraph {

// The log sink throws it at the record of a failed assertion, so that the
// process continues where a device aborts.
struct AssertionFailed {
    std::string text;  // of the record
};

// A task graph that records how many options had been looked up when set-up
// registered each stream: the last two are its name and its format.
class WatchedTaskGraph : public QVHostTaskGraph {
public:
    // Watches the node that is set up from now on.
    void watch(const QVLookupScope* lookups);

    int addInputStream(std::string name) override;
    int addOutputStream(std::string name) override;

    // For each stream of the node, in the order in which set-up registered them.
    const std::vector<size_t>& inputs() const { return mInputs; }
    const std::vector<size_t>& outputs() const { return mOutputs; }

private:
    const QVLookupScope* mLookups = nullptr;
    std::vector<size_t> mInputs;
    std::vector<size_t> mOutputs;
};

// Sets up 'node_<id>' of a pipe in `graph`; reads back what its store holds if
// `readsOptions` is set. The caller sets `index` and `member`.
// REQUIRES: the log sink throws AssertionFailed at the record of an assertion.
SurveyedNode setUpNode(
    const QVGraphParser& parser, int pipe, int id, WatchedTaskGraph* graph, bool readsOptions);

}  // namespace qvgraph

#endif  // QVGRAPH_SURVEY_NODE_SETUP_H_
