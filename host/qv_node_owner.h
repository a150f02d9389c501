// Frees what a node creation record received from the desk's node proxy.
#ifndef QVGRAPH_HOST_QV_NODE_OWNER_H_
#define QVGRAPH_HOST_QV_NODE_OWNER_H_

#include "framework/qv_node_proxy.h"

// A record and what it holds. Deletes the node, then its stream managers, then
// the option store where the proxy supplied it.
//
//   QVNodeOwner owner;
//   parser.initTaskNode(&graph, pipe, id, owner.info());
class QVNodeOwner {
public:
    QVNodeOwner() = default;
    ~QVNodeOwner();

    // The record is handed out by address. Keep owners in a
    // std::deque or behind a std::unique_ptr.
    QVNodeOwner(const QVNodeOwner&) = delete;
    QVNodeOwner& operator=(const QVNodeOwner&) = delete;

    // The record; set up one node with it. Valid while the owner lives.
    _QVNodeInfo* info() { return &mInfo; }
    const _QVNodeInfo* info() const { return &mInfo; }

private:
    _QVNodeInfo mInfo;
};

#endif  // QVGRAPH_HOST_QV_NODE_OWNER_H_
