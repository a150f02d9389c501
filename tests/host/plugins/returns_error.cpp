// Registers a class and returns an error.
#include "host/qv_node_class.h"

namespace {

QVTaskNodeBase* createNone(const _QVNodeInfo* /*info*/) {
    return nullptr;
}

}  // namespace

int qvgraph_register_nodes(QVNodeClassRegistry* registry) {
    QVNodeClass nodeClass;
    nodeClass.name = "Mixer";
    nodeClass.create = createNone;
    registry->registerClass(nodeClass);
    return 7;
}
