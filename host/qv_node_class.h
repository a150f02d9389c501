// How a node class is made known, to a registry of the desk.
#ifndef QVGRAPH_HOST_QV_NODE_CLASS_H_
#define QVGRAPH_HOST_QV_NODE_CLASS_H_

#include "framework/qv_node_proxy.h"

// As many stream managers as the configuration declares.
enum : int { QV_AS_DECLARED = -1 };

// One node class.
//
//   registry.registerClass({"Blender", [](const _QVNodeInfo*) -> QVTaskNodeBase* {
//                               return new Blender;
//                           }});
struct QVNodeClass {
    // What a configuration calls it: "node_name" up to a '#'. Not empty,
    // without a '#', NUL-terminated. A registry copies it.
    const char* name = nullptr;

    // Returns a new node, which the owner of the record deletes, or null when
    // it cannot be made. A node without an option store (a null mOptions) gets
    // one, which it leaves in its place and does not delete. `info` has the
    // node's id and the numbers of its declared streams.
    QVTaskNodeBase* (*create)(const _QVNodeInfo* info) = nullptr;

    // How many inputs and outputs a node of the class has, from 0, or
    // QV_AS_DECLARED.
    int inputNum = QV_AS_DECLARED;
    int outputNum = QV_AS_DECLARED;
};

// What takes node classes.
class QVNodeClassRegistry {
public:
    QVNodeClassRegistry() = default;
    virtual ~QVNodeClassRegistry() = default;

    // A registry is used through pointers to this base; a copy would cut it.
    QVNodeClassRegistry(const QVNodeClassRegistry&) = delete;
    QVNodeClassRegistry& operator=(const QVNodeClassRegistry&) = delete;

    // Makes a class known from now on. Returns 0, or, without any effect, -1
    // when its name is taken and -2 when the class is not as said above.
    virtual int registerClass(const QVNodeClass& nodeClass) = 0;
};

// What a shared library with node classes defines: it registers them and
// returns 0, or something else when it cannot (see host/qv_node_plugin.h).
extern "C" __attribute__((visibility("default"))) int qvgraph_register_nodes(
    QVNodeClassRegistry* registry);

#endif  // QVGRAPH_HOST_QV_NODE_CLASS_H_
