#include "cli/example_classes.h"

#include <vector>

#include "host/qv_host_task_node.h"
#include "host/qv_node_registry.h"

namespace qvgraph {

namespace {

QVTaskNodeBase* createNode(const _QVNodeInfo* /*info*/) {
    return new QVStubTaskNode;
}

QVTaskNodeBase* createNothing(const _QVNodeInfo* /*info*/) {
    return nullptr;
}

// Looks up the option "gain" as a float.
class GainNode : public QVHostTaskNode {
public:
    int initialize(int nodeId,
                   _QVTaskNodeInfo* info,
                   const std::vector<QVInputStreamManager*>& inputs,
                   const std::vector<QVOutputStreamManager*>& outputs) override {
        float gain = 0;
        mOptions->findFloat("gain", &gain);
        return QVHostTaskNode::initialize(nodeId, info, inputs, outputs);
    }
};

QVTaskNodeBase* createGain(const _QVNodeInfo* /*info*/) {
    return new GainNode;
}

decltype(QVNodeClass::create) creatorOf(const ExampleClass& example) {
    if (!example.createsNode) {
        return createNothing;
    }
    return example.looksUpGain ? createGain : createNode;
}

}  // namespace

int registerExampleClass(const ExampleClass& example) {
    return QVNodeRegistry::instance().registerClass(
        {example.name, creatorOf(example), example.inputs, example.outputs});
}

ExampleClasses::ExampleClasses(const RuleExample& example) : mExample(example) {
    QVNodeRegistry::instance().setStub(example.stub);
    for (const ExampleClass& each : example.classes) {
        registerExampleClass(each);
    }
}

ExampleClasses::~ExampleClasses() {
    for (const ExampleClass& each : mExample.classes) {
        QVNodeRegistry::instance().unregisterClass(each.name);
    }
}

}  // namespace qvgraph
