/// @file
/// The node classes of the host framework.
#ifndef QVGRAPH_HOST_QV_HOST_TASK_NODE_H_
#define QVGRAPH_HOST_QV_HOST_TASK_NODE_H_

#include <string>
#include <vector>

#include "framework/qv_task_node.h"
#include "host/qv_host_meta_data.h"

/// A node with its own option store, which records the arguments of initialize.
/// An override of initialize must call this class's version first.
class QVHostTaskNode : public QVTaskNodeBase {
public:
    QVHostTaskNode() { mOptions = &mStore; }

    /// Returns 0.
    int initialize(int nodeId,
                   _QVTaskNodeInfo* info,
                   const std::vector<QVInputStreamManager*>& inputs,
                   const std::vector<QVOutputStreamManager*>& outputs) override;

    /// Returns whether initialize was called.
    bool isInitialized() const { return mInitialized; }

    /// Returns the node's id; 0 until initialize is called.
    int nodeId() const { return mNodeId; }
    /// Returns the node's name; empty until initialize is called.
    const std::string& nodeName() const { return mNodeName; }
    /// Returns the managers of the inputs; empty until initialize is called.
    const std::vector<QVInputStreamManager*>& inputs() const { return mInputs; }
    /// Returns the managers of the outputs; empty until initialize is called.
    const std::vector<QVOutputStreamManager*>& outputs() const { return mOutputs; }

private:
    QVHostMetaData mStore;
    bool mInitialized = false;
    int mNodeId = 0;
    std::string mNodeName;
    std::vector<QVInputStreamManager*> mInputs;
    std::vector<QVOutputStreamManager*> mOutputs;
};

/// Stands in for a class that is not registered (see QVNodeRegistry::setStub).
class QVStubTaskNode final : public QVHostTaskNode {};

#endif  // QVGRAPH_HOST_QV_HOST_TASK_NODE_H_
