#include "host/qv_host_task_node.h"

int QVHostTaskNode::initialize(int nodeId,
                               _QVTaskNodeInfo* info,
                               const std::vector<QVInputStreamManager*>& inputs,
                               const std::vector<QVOutputStreamManager*>& outputs) {
    mNodeId = nodeId;
    mNodeName = info->nodeName;
    mInputs = inputs;
    mOutputs = outputs;
    mInitialized = true;
    return 0;
}
