// The task node: what every node class derives from.
#ifndef QVGRAPH_FRAMEWORK_QV_TASK_NODE_H_
#define QVGRAPH_FRAMEWORK_QV_TASK_NODE_H_

#include <cstdint>
#include <string>
#include <vector>

#include "framework/qv_meta_data.h"
#include "framework/qv_stream_manager.h"

// What a node is told about itself. The parser builds one on its stack for one
// call of QVTaskNodeBase::initialize: copy what is needed longer.
struct _QVTaskNodeInfo {
    int32_t nodeId = 0;    // the number in the node's 'node_<n>' key
    std::string nodeName;  // "node_name" of the node's "node_opts"
};

// The life of a node, as the parser sees it:
//   1. the node proxy creates it, with an option store in mOptions
//   2. the parser copies the node's four option objects into that store
//   3. the parser registers the node's streams and binds their managers
//   4. the parser calls initialize
// Step 4 is skipped when a stream has no name (the process aborts) or no
// format (an exception leaves the parser), when the task graph refuses a
// stream, and when the node has no stream manager at all. All steps run in the
// thread that called QVGraphParser::initTaskNode, which never frees the node.
class QVTaskNodeBase {
public:
    QVTaskNodeBase() = default;
    virtual ~QVTaskNodeBase() = default;

    // A node is known by its address, which the framework keeps.
    QVTaskNodeBase(const QVTaskNodeBase&) = delete;
    QVTaskNodeBase& operator=(const QVTaskNodeBase&) = delete;

    // Completes the node with its streams.
    //
    // `info` is never null and lives until the call returns. The managers are
    // those of the node's creation record, in input and output order, each
    // bound to its stream. They belong to the framework and outlive the node's
    // work. The result is ignored.
    virtual int initialize(int nodeId,
                           _QVTaskNodeInfo* info,
                           const std::vector<QVInputStreamManager*>& inputs,
                           const std::vector<QVOutputStreamManager*>& outputs) = 0;

    // The node's options. Valid as soon as the node proxy has returned the
    // node, and for as long as the node lives. The parser does not check it.
    QvMetaData* mOptions = nullptr;
};

#endif  // QVGRAPH_FRAMEWORK_QV_TASK_NODE_H_
