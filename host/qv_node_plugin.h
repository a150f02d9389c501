/// @file
/// Node classes from shared libraries.
///
/// Such a library exports one function with C linkage:
/// @code
/// int qvgraph_register_nodes(QVNodeClassRegistry* registry) {
///     return registry->registerClass({"Blender", createBlender});
/// }
/// @endcode
///
/// The library includes only "host/qv_node_class.h" and the headers of
/// framework/, and links no library of qvgraph. The functions that its classes
/// call, such as qv_log, come from the program, which must export them (in
/// CMake, ENABLE_EXPORTS). The registry is valid only during the call.
///
/// If the function returns non-zero, registers no class, or registers a class
/// that is rejected, loading the library fails and none of its classes stays
/// registered.
///
/// REQUIRES: library and program are built with the same version of these
/// headers and of the C++ standard library. This is not checked.
#ifndef QVGRAPH_HOST_QV_NODE_PLUGIN_H_
#define QVGRAPH_HOST_QV_NODE_PLUGIN_H_

#include <optional>
#include <string>

#include "host/qv_node_registry.h"

/// Loads the library at `path` and has it register its classes, with the path
/// as their origin. The library stays loaded until the process ends.
///
/// Returns nothing on success. Otherwise returns the error, as one line that
/// names the path, and leaves the registry unchanged.
///
/// Thread safety: may be called from any thread. If two threads load the same
/// library at the same time, one of them fails because its classes are already
/// registered.
std::optional<std::string> qv_load_node_plugin(const std::string& path, QVNodeRegistry* registry);

#endif  // QVGRAPH_HOST_QV_NODE_PLUGIN_H_
