// The node class of blender.h as a shared library, for the qvgraph command:
//
//   qvgraph inspect --plugin ./libown_plugin.so blend.json
//
// The command then sets a real Blender up where it would have had a stub. The
// library needs this one function, and links nothing of qvgraph's.
#include "blender.h"

int qvgraph_register_nodes(QVNodeClassRegistry* registry) {
    return registry->registerClass(blenderClass());
}
