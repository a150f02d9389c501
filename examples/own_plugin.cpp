// The node class of blender.h as a shared library, for the qvgraph command:
//
//   qvgraph inspect --plugin ./libown_plugin.so blend.json
//
// The command then sets up a real Blender instead of a stub. The library needs
// only this one function, and links no library of qvgraph.
#include "blender.h"

int qvgraph_register_nodes(QVNodeClassRegistry* registry) {
    return registry->registerClass(blenderClass());
}
