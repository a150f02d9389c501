// Node classes from shared libraries.
//
// Such a library exports one function with C linkage:
//
//   int qvgraph_register_nodes(QVNodeClassRegistry* registry) {
//       return registry->registerClass({"Blender", createBlender});
//   }
//
// It includes "host/qv_node_class.h" and the contracts alone and links nothing
// of ours: what its classes call, such as qv_log, is the program's, which
// exports it (in CMake, ENABLE_EXPORTS). The registry is valid during that call
// alone. Library and program are built with the same version of these headers
// and of the C++ standard library; nothing checks that. Returning non-zero, no
// class, or a class that cannot be registered makes the whole library fail.
#ifndef QVGRAPH_HOST_QV_NODE_PLUGIN_H_
#define QVGRAPH_HOST_QV_NODE_PLUGIN_H_

#include <optional>
#include <string>

#include "host/qv_node_registry.h"

// Loads the library at `path` and has it register its classes, with the path
// as their origin. The library stays loaded as long as the process runs.
//
// Returns nothing on success, otherwise what went wrong, as one line that
// names the path; the registry is then as it was before.
//
// Thread safety: may be called from any thread; two loads of one library at
// the same time fail as a class that is registered twice.
std::optional<std::string> qv_load_node_plugin(const std::string& path, QVNodeRegistry* registry);

#endif  // QVGRAPH_HOST_QV_NODE_PLUGIN_H_
