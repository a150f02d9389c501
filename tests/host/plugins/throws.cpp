// Registers a class and throws; an environment variable selects what it throws.
#include <cstdlib>
#include <stdexcept>

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
    if (getenv("QVGRAPH_TEST_THROWS_INT") != nullptr) {
        throw 7;
    }
    throw std::runtime_error("no licence for the mixer");
}
