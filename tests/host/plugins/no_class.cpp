// Registers nothing and returns success.
#include "host/qv_node_class.h"

int qvgraph_register_nodes(QVNodeClassRegistry* /*registry*/) {
    return 0;
}
