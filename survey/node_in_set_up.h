// Which node is being set up, for reports of crashes; part of the survey.
#ifndef QVGRAPH_SURVEY_NODE_IN_SET_UP_H_
#define QVGRAPH_SURVEY_NODE_IN_SET_UP_H_

namespace qvgraph {

// The node whose class's code is running: the node is being created, set up,
// asked for its options or deleted.
struct NodeInSetUp {
    const char* className;
    int pipe;
    int id;
};

// Null if no such code is running. A signal handler may call it.
const NodeInSetUp* nodeInSetUp();

// Makes a node the one that is in set-up, as long as the scope exists. Scopes are
// not nested.
class SetUpScope {
public:
    explicit SetUpScope(const NodeInSetUp& node);
    ~SetUpScope();

    // nodeInSetUp() points into it.
    SetUpScope(const SetUpScope&) = delete;
    SetUpScope& operator=(const SetUpScope&) = delete;

private:
    NodeInSetUp mNode;
};

}  // namespace qvgraph

#endif  // QVGRAPH_SURVEY_NODE_IN_SET_UP_H_
