// Registers a class, and then another one under the same name; returns success.
#include "host/qv_node_class.h"

namespace {

QVTaskNodeBase* createNone(const _QVNodeInfo* /*info*/) {
    return nullptr;
}

}  // namespace

int qvgraph_register_nodes(QVNodeClassRegistry* registry) {
    QVNodeClass first;
    first.name = "Mixer";
    first.create = createNone;
    registry->registerClass(first);
    registry->registerClass(first);
    return 0;
}
