/// @file
/// Frees what the host framework's node proxy put into a node creation record.
#ifndef QVGRAPH_HOST_QV_NODE_OWNER_H_
#define QVGRAPH_HOST_QV_NODE_OWNER_H_

#include "framework/qv_node_proxy.h"

/// Owns a record and its contents. Deletes the node, then its stream managers,
/// then the option store if the proxy supplied it.
/// @code
/// QVNodeOwner owner;
/// parser.initTaskNode(&graph, pipe, id, owner.info());
/// @endcode
class QVNodeOwner {
public:
    QVNodeOwner() = default;
    ~QVNodeOwner();

    /// Neither copyable nor movable: others hold the record's address. Keep
    /// owners in a std::deque or a std::unique_ptr.
    QVNodeOwner(const QVNodeOwner&) = delete;
    /// Not assignable, for the same reason.
    QVNodeOwner& operator=(const QVNodeOwner&) = delete;

    /// Returns the record, valid as long as the owner. Use it to set up only one
    /// node.
    _QVNodeInfo* info() { return &mInfo; }
    /// Returns the record, to read it.
    const _QVNodeInfo* info() const { return &mInfo; }

private:
    _QVNodeInfo mInfo;
};

#endif  // QVGRAPH_HOST_QV_NODE_OWNER_H_
