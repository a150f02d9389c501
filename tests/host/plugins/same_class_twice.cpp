// Registers a class, and then another under its name; says that all is well.
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
