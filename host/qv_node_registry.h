// The node classes that the desk's node proxy creates nodes of.
//
// The proxy takes a node's name up to a '#' for the name of its class; what
// follows is a label that tells nodes of one class apart: "Camera#front". A
// name without a class, and a class that is not registered, give no node.
#ifndef QVGRAPH_HOST_QV_NODE_REGISTRY_H_
#define QVGRAPH_HOST_QV_NODE_REGISTRY_H_

#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/qv_node_class.h"

// The one registry of the process. It starts empty, without a stub.
//
// Thread safety: every function may be called from any thread.
class QVNodeRegistry final : public QVNodeClassRegistry {
public:
    static QVNodeRegistry& instance();

    int registerClass(const QVNodeClass& nodeClass) override;

    // Forgets a class; nodes of it stay. Returns whether there was one.
    bool unregisterClass(std::string_view name);

    // The names of the registered classes, in byte order.
    std::vector<std::string> classNames() const;

    // Whether QVStubTaskNode stands in for every class that is not registered,
    // with as many stream managers as the configuration declares.
    void setStub(bool stub);
    bool stub() const;

    // What nodes of that class are made by: the registered class, the stub, or
    // nothing. `name` in the result is null.
    std::optional<QVNodeClass> find(std::string_view name) const;

private:
    QVNodeRegistry() = default;

    mutable std::mutex mMutex;
    std::map<std::string, QVNodeClass, std::less<>> mClasses;
    bool mStub = false;
};

// The class in a node's name: what stands before the first '#'.
std::string_view qv_node_class_name(std::string_view nodeName);

#endif  // QVGRAPH_HOST_QV_NODE_REGISTRY_H_
