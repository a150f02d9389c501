/// @file
/// The task node: the base class of every node class.
#ifndef QVGRAPH_FRAMEWORK_QV_TASK_NODE_H_
#define QVGRAPH_FRAMEWORK_QV_TASK_NODE_H_

#include <cstdint>
#include <string>
#include <vector>

#include "framework/qv_meta_data.h"
#include "framework/qv_stream_manager.h"

/// Describes a node to its own initialize. The parser builds one on its stack
/// for one call of QVTaskNodeBase::initialize: copy what you need for longer.
struct _QVTaskNodeInfo {
    int32_t nodeId = 0;    ///< the number in the node's `node_<n>` key
    std::string nodeName;  ///< "node_name" of the node's "node_opts"
};

/// The base class of task nodes.
///
/// The life cycle of a node, as the parser sees it:
/// 1. The node proxy creates it, with an option store in mOptions.
/// 2. The parser copies the node's four option objects into that store.
/// 3. The parser registers the node's streams and binds their managers.
/// 4. The parser calls initialize.
///
/// Step 4 is skipped if a stream has no name (the process aborts) or no format
/// (the parser throws), if the task graph refuses a stream, and if the node has
/// no stream manager. All steps run in the thread that called
/// QVGraphParser::initTaskNode. The parser never deletes the node.
class QVTaskNodeBase {
public:
    QVTaskNodeBase() = default;
    virtual ~QVTaskNodeBase() = default;

    /// Not copyable: the framework identifies a node by its address.
    QVTaskNodeBase(const QVTaskNodeBase&) = delete;
    /// Not assignable, for the same reason.
    QVTaskNodeBase& operator=(const QVTaskNodeBase&) = delete;

    /// Completes the node with its streams.
    ///
    /// `info` is never null and is valid only during the call. The managers are
    /// those of the node's creation record, in input and output order, each
    /// bound to its stream. They belong to the framework and stay valid as long
    /// as the node works. The parser ignores the result.
    virtual int initialize(int nodeId,
                           _QVTaskNodeInfo* info,
                           const std::vector<QVInputStreamManager*>& inputs,
                           const std::vector<QVOutputStreamManager*>& outputs) = 0;

    /// The node's options. REQUIRES: valid from the moment the node proxy
    /// returns the node until the node is deleted. The parser does not check
    /// it.
    QvMetaData* mOptions = nullptr;
};

#endif  // QVGRAPH_FRAMEWORK_QV_TASK_NODE_H_
