// A shared library with an undefined C++ symbol.
#include "host/qv_node_class.h"

namespace camera {
int open(int number);
}

int qvgraph_register_nodes(QVNodeClassRegistry* /*registry*/) {
    return camera::open(0);
}
