// Sets one node up and tells what became of it; part of the survey.
#ifndef QVGRAPH_SURVEY_NODE_SETUP_H_
#define QVGRAPH_SURVEY_NODE_SETUP_H_

#include <string>

#include "host/qv_host_task_graph.h"
#include "survey/survey.h"

namespace qvgraph {

// What the log sink throws at the record of a failed assertion, so that the
// process goes on where a device's would be aborted.
struct AssertionFailed {
    std::string text;  // of the record
};

// Sets up 'node_<id>' of a pipe in `graph`. `index` is left to the caller.
// REQUIRES: the log sink throws AssertionFailed as said.
Node setUpNode(const QVGraphParser& parser, int pipe, int id, QVHostTaskGraph* graph);

}  // namespace qvgraph

#endif  // QVGRAPH_SURVEY_NODE_SETUP_H_
