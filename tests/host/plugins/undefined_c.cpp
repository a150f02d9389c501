// A shared library with an undefined C symbol.
#include "host/qv_node_class.h"

extern "C" int camera_open(int number);

int qvgraph_register_nodes(QVNodeClassRegistry* /*registry*/) {
    return camera_open(0);
}
