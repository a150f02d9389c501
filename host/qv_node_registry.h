// The node classes that the desk's node proxy creates nodes of.
//
// The proxy takes a node's name up to a '#' for the name of its class; what
// follows is a label that tells nodes of one class apart: "Camera#front". A
// name without a class, and a class that is not registered, give no node. The
// proxy keeps every name that it has seen as long as the process runs.
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
    // The registry, made by the first call.
    static QVNodeRegistry& instance();

    int registerClass(const QVNodeClass& nodeClass) override;

    // Forgets a class; nodes of it stay. Returns whether there was one.
    bool unregisterClass(std::string_view name);

    // The same, with where the class comes from: the path of a library.
    int registerClass(const QVNodeClass& nodeClass, const std::string& origin);

    // A registered class, and where it comes from; empty for the program.
    struct Entry {
        std::string name;    // of the class
        std::string origin;  // a library's path
    };

    // Whether a class of that name is registered.
    bool isRegistered(std::string_view name) const;

    // The registered classes, in the byte order of their names.
    std::vector<Entry> classes() const;

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
    struct Registered {
        QVNodeClass nodeClass;  // its name is null: the key has it
        std::string origin;
    };
    std::map<std::string, Registered, std::less<>> mClasses;
    bool mStub = false;
};

// The class in a node's name: what stands before the first '#'.
std::string_view qv_node_class_name(std::string_view nodeName);

// Why a class is not as QVNodeClass says: "it has no create function". Empty
// when it is.
std::string qv_node_class_fault(const QVNodeClass& nodeClass);

#endif  // QVGRAPH_HOST_QV_NODE_REGISTRY_H_
