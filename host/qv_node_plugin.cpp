#include "host/qv_node_plugin.h"

#include <cxxabi.h>
#include <dlfcn.h>

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <memory>
#include <system_error>
#include <vector>

namespace {

using RegisterNodes = int (*)(QVNodeClassRegistry*);
using Library = std::unique_ptr<void, int (*)(void*)>;

// The registry that a library receives. Registers the library's classes with
// its path as their origin, and unregisters them again unless keepClasses is
// called.
class PluginRegistry final : public QVNodeClassRegistry {
public:
    PluginRegistry(QVNodeRegistry* registry, const std::string& origin)
        : mRegistry(registry), mOrigin(origin) {}

    ~PluginRegistry() override {
        for (const std::string& name : mNames) {
            mRegistry->unregisterClass(name);
        }
    }

    int registerClass(const QVNodeClass& nodeClass) override {
        const int result = mRegistry->registerClass(nodeClass, mOrigin);
        if (result == 0) {
            mNames.emplace_back(nodeClass.name);
        } else if (mError.empty()) {
            mError = explain(result, nodeClass);
        }
        return result;
    }

    bool empty() const { return mNames.empty(); }

    void keepClasses() { mNames.clear(); }

    // Why the first rejected class was rejected; empty if none was.
    const std::string& error() const { return mError; }

private:
    std::string explain(int result, const QVNodeClass& nodeClass) const {
        const std::string name = nodeClass.name != nullptr ? nodeClass.name : "";
        if (result == -2) {
            return "class '" + name + "' cannot be registered: " + qv_node_class_fault(nodeClass) +
                   " (see host/qv_node_class.h)";
        }
        if (std::find(mNames.begin(), mNames.end(), name) != mNames.end()) {
            return "the library registers class '" + name + "' twice";
        }
        const std::string origin = originOf(name);
        return "class '" + name + "' is already registered by " +
               (origin.empty() ? "the program" : origin);
    }

    std::string originOf(const std::string& name) const {
        const std::vector<QVNodeRegistry::Entry> classes = mRegistry->classes();
        const auto named = std::find_if(
            classes.begin(), classes.end(), [&](const auto& entry) { return entry.name == name; });
        return named != classes.end() ? named->origin : "";
    }

    QVNodeRegistry* mRegistry;
    std::string mOrigin;
    std::vector<std::string> mNames;
    std::string mError;
};

// Returns the dynamic linker's message. The name of an undefined symbol is
// demangled.
std::string linkerError() {
    std::string error = dlerror();
    const std::string prefix = "undefined symbol: ";
    const size_t found = error.find(prefix);
    if (found != std::string::npos) {
        const size_t begin = found + prefix.size();
        const std::unique_ptr<char, void (*)(void*)> name(
            abi::__cxa_demangle(error.c_str() + begin, nullptr, nullptr, nullptr), free);
        if (name != nullptr) {
            error.replace(begin, std::string::npos, name.get());
        }
    }
    return error;
}

// Has the library register its classes. Returns the error; empty on success.
std::string runRegistration(RegisterNodes registerNodes, PluginRegistry* classes) {
    int result = 0;
    try {
        result = registerNodes(classes);
    } catch (const std::exception& error) {
        return std::string("qvgraph_register_nodes threw: ") + error.what();
    } catch (...) {
        return "qvgraph_register_nodes threw";
    }
    if (!classes->error().empty()) {
        return classes->error();
    }
    if (result != 0) {
        return "qvgraph_register_nodes returned " + std::to_string(result);
    }
    return classes->empty() ? "the library registers no class" : "";
}

}  // namespace

std::optional<std::string> qv_load_node_plugin(const std::string& path, QVNodeRegistry* registry) {
    // dlopen would search the system's folders for a path without a '/'.
    std::error_code failure;
    const std::string absolute = std::filesystem::absolute(path, failure).string();
    if (failure) {
        return "cannot load '" + path + "': " + failure.message();
    }
    Library library(dlopen(absolute.c_str(), RTLD_NOW | RTLD_LOCAL), dlclose);
    if (!library) {
        return "cannot load " + path + ": " + linkerError();
    }
    void* const symbol = dlsym(library.get(), "qvgraph_register_nodes");
    if (symbol == nullptr) {
        return "cannot load " + path + ": the library does not export qvgraph_register_nodes";
    }
    PluginRegistry classes(registry, path);
    const std::string error = runRegistration(reinterpret_cast<RegisterNodes>(symbol), &classes);
    if (!error.empty()) {
        return "cannot load " + path + ": " + error;
    }
    classes.keepClasses();
    static_cast<void>(library.release());  // stays loaded, as do its classes
    return std::nullopt;
}
