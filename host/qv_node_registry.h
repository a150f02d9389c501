/// @file
/// The registry of the node classes from which the host framework's node proxy
/// creates nodes.
///
/// The proxy uses a node's name up to a '#' as the name of its class. The rest
/// is a label that distinguishes nodes of the same class: "Camera#front". If
/// the class name is empty, the proxy creates no node; if it is not registered,
/// the proxy creates a stub if stubs are enabled (QVNodeRegistry::setStub), and
/// otherwise no node. The proxy keeps every name that it has seen until the
/// process ends.
#ifndef QVGRAPH_HOST_QV_NODE_REGISTRY_H_
#define QVGRAPH_HOST_QV_NODE_REGISTRY_H_

#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/qv_node_class.h"

/// The one registry of the process. Initially it is empty and has no stub.
///
/// Thread safety: every function may be called from any thread.
class QVNodeRegistry final : public QVNodeClassRegistry {
public:
    /// Returns the registry. The first call creates it.
    static QVNodeRegistry& instance();

    int registerClass(const QVNodeClass& nodeClass) override;

    /// Removes a class; its existing nodes stay valid. Returns whether it was
    /// registered.
    bool unregisterClass(std::string_view name);

    /// Registers a class as registerClass(const QVNodeClass&) does, and records
    /// its origin: the path of a library.
    int registerClass(const QVNodeClass& nodeClass, const std::string& origin);

    /// A registered class.
    struct Entry {
        std::string name;    ///< the name of the class
        std::string origin;  ///< the path of its library; empty for the program's own classes
    };

    /// Returns whether a class of that name is registered.
    bool isRegistered(std::string_view name) const;

    /// Returns the registered classes, in the byte order of their names.
    std::vector<Entry> classes() const;

    /// Sets whether QVStubTaskNode stands in for every class that is not
    /// registered, with as many stream managers as the configuration declares.
    void setStub(bool stub);
    /// Returns what setStub set; false by default.
    bool stub() const;

    /// Returns the class that creates nodes of that name: the registered class,
    /// the stub, or nothing. `name` in the result is null.
    std::optional<QVNodeClass> find(std::string_view name) const;

private:
    QVNodeRegistry() = default;

    mutable std::mutex mMutex;
    // A class and the library that it comes from.
    struct Registered {
        QVNodeClass nodeClass;  // its name is null; the map's key has it
        std::string origin;
    };
    std::map<std::string, Registered, std::less<>> mClasses;
    bool mStub = false;
};

/// Returns the class name in a node's name: the part before the first '#'.
std::string_view qv_node_class_name(std::string_view nodeName);

/// Returns why a class does not satisfy QVNodeClass, such as
/// "it has no create function"; empty if it does.
std::string qv_node_class_fault(const QVNodeClass& nodeClass);

#endif  // QVGRAPH_HOST_QV_NODE_REGISTRY_H_
