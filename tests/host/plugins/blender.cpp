// Two classes: one that always has two inputs and one output, and one without its
// own option store.
#include <string>
#include <vector>

#include "host/qv_node_class.h"

namespace {

class Blender : public QVTaskNodeBase {
public:
    int initialize(int /*nodeId*/,
                   _QVTaskNodeInfo* /*info*/,
                   const std::vector<QVInputStreamManager*>& /*inputs*/,
                   const std::vector<QVOutputStreamManager*>& /*outputs*/) override {
        return 0;
    }
};

QVTaskNodeBase* createBlender(const _QVNodeInfo* /*info*/) {
    return new Blender;
}

}  // namespace

int qvgraph_register_nodes(QVNodeClassRegistry* registry) {
    QVNodeClass blender;
    blender.name = "Blender";
    blender.create = createBlender;
    blender.inputNum = 2;
    blender.outputNum = 1;
    registry->registerClass(blender);
    blender.name = "Splitter";
    blender.inputNum = QV_AS_DECLARED;
    blender.outputNum = QV_AS_DECLARED;
    return registry->registerClass(blender);
}
