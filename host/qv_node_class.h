/// @file
/// The description of a node class, and the interface through which it is
/// registered.
#ifndef QVGRAPH_HOST_QV_NODE_CLASS_H_
#define QVGRAPH_HOST_QV_NODE_CLASS_H_

#include "framework/qv_node_proxy.h"

/// Special numbers of streams.
enum : int {
    QV_AS_DECLARED = -1,  ///< as many stream managers as the configuration declares
};

/// One node class.
/// @code
/// registry.registerClass({"Blender", [](const _QVNodeInfo*) -> QVTaskNodeBase* {
///                             return new Blender;
///                         }});
/// @endcode
struct QVNodeClass {
    /// The name of the class in a configuration: "node_name" up to a '#'.
    /// NUL-terminated, not empty, without a '#'. A registry copies it.
    const char* name = nullptr;

    /// Creates a node. Returns a new node, which the owner of the record
    /// deletes, or null if it cannot be created. `info` contains the node's id
    /// and the numbers of its declared streams.
    ///
    /// A node whose mOptions is null receives a store from the proxy. The node
    /// must leave that store in place and must not delete it.
    QVTaskNodeBase* (*create)(const _QVNodeInfo* info) = nullptr;

    /// The number of inputs of each node of the class: 0 or more, or
    /// QV_AS_DECLARED.
    int inputNum = QV_AS_DECLARED;

    /// As inputNum, for outputs.
    int outputNum = QV_AS_DECLARED;
};

/// The interface through which node classes are registered.
class QVNodeClassRegistry {
public:
    QVNodeClassRegistry() = default;
    virtual ~QVNodeClassRegistry() = default;

    /// Not copyable: a registry is used through pointers to this base class,
    /// and a copy would slice it.
    QVNodeClassRegistry(const QVNodeClassRegistry&) = delete;
    /// Not assignable, for the same reason.
    QVNodeClassRegistry& operator=(const QVNodeClassRegistry&) = delete;

    /// Registers a class; nodes of it can be created from now on. Returns 0.
    /// Returns -1 if the name is already registered and -2 if the class does
    /// not satisfy QVNodeClass; the call then has no effect.
    virtual int registerClass(const QVNodeClass& nodeClass) = 0;
};

/// The entry point that a shared library with node classes defines. It
/// registers the classes and returns 0, or another value if it cannot (see
/// host/qv_node_plugin.h).
extern "C" __attribute__((visibility("default"))) int qvgraph_register_nodes(
    QVNodeClassRegistry* registry);

#endif  // QVGRAPH_HOST_QV_NODE_CLASS_H_
