// From a text to a live graph, with the calls that a framework makes. Works with
// any framework.
#ifndef QVGRAPH_BENCH_LIVE_GRAPH_H_
#define QVGRAPH_BENCH_LIVE_GRAPH_H_

#include <deque>

#include "bench/require.h"
#include "graph/qv_graph_parser.h"

// A configuration with all nodes set up and the options of all executors and
// links stored. `Owner` frees what its record received.
template <typename Graph, typename Store, typename Owner>
class LiveGraph {
public:
    // Runs every query on every pipe. Ends the process if the text does not load
    // or if a node cannot be set up.
    explicit LiveGraph(const char* text) {
        require(mParser.parseConfigText(text) == 0);
        for (int pipe = 0; pipe < mParser.getPipeNum(); ++pipe) {
            setUp(pipe);
        }
    }

private:
    void setUp(int pipe) {
        mThreads += mParser.getThreadNum(pipe);
        require(!mParser.getDefaultLinkMode(pipe).empty());
        const int executors = mParser.getExecNum(pipe);
        for (int i = 0; i < executors; ++i) {
            const int id = mParser.getExecIDByIndex(pipe, i);
            mParser.syncExecOptions(&mStores.emplace_back(), pipe, id);
        }
        const int links = mParser.getLinkNum(pipe);
        for (int i = 0; i < links; ++i) {
            const int id = mParser.getLinkIDByIndex(pipe, i);
            mParser.syncLinkOptions(&mStores.emplace_back(), pipe, id);
        }
        Graph* const graph = &mGraphs.emplace_back();
        const int nodes = mParser.getNodeNum(pipe);
        for (int i = 0; i < nodes; ++i) {
            const int id = mParser.getNodeIDByIndex(pipe, i);
            require(mParser.initTaskNode(graph, pipe, id, mNodes.emplace_back().info()) == 0);
        }
    }

    QVGraphParser mParser;
    std::deque<Store> mStores;
    std::deque<Graph> mGraphs;
    std::deque<Owner> mNodes;
    int mThreads = 0;
};

#endif  // QVGRAPH_BENCH_LIVE_GRAPH_H_
