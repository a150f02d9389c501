// Node classes of the desk.
#ifndef QVGRAPH_HOST_QV_HOST_TASK_NODE_H_
#define QVGRAPH_HOST_QV_HOST_TASK_NODE_H_

#include <string>
#include <vector>

#include "framework/qv_task_node.h"
#include "host/qv_host_meta_data.h"

// A node with an option store of its own, which remembers what it was
// initialised with. A class that overrides initialize calls this one first.
class QVHostTaskNode : public QVTaskNodeBase {
public:
    QVHostTaskNode() { mOptions = &mStore; }

    // Returns 0.
    int initialize(int nodeId,
                   _QVTaskNodeInfo* info,
                   const std::vector<QVInputStreamManager*>& inputs,
                   const std::vector<QVOutputStreamManager*>& outputs) override;

    // False until initialize has been called; what follows is empty then.
    bool isInitialized() const { return mInitialized; }
    int nodeId() const { return mNodeId; }
    const std::string& nodeName() const { return mNodeName; }
    const std::vector<QVInputStreamManager*>& inputs() const { return mInputs; }
    const std::vector<QVOutputStreamManager*>& outputs() const { return mOutputs; }

private:
    QVHostMetaData mStore;
    bool mInitialized = false;
    int mNodeId = 0;
    std::string mNodeName;
    std::vector<QVInputStreamManager*> mInputs;
    std::vector<QVOutputStreamManager*> mOutputs;
};

// Stands in for a class that the desk does not have (see
// QVNodeRegistry::setStub).
class QVStubTaskNode final : public QVHostTaskNode {};

#endif  // QVGRAPH_HOST_QV_HOST_TASK_NODE_H_
