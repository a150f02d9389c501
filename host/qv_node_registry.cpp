#include "host/qv_node_registry.h"

#include <utility>

#include "host/qv_host_task_node.h"

namespace {

QVTaskNodeBase* createStub(const _QVNodeInfo* /*info*/) {
    return new QVStubTaskNode;
}

bool isClassName(const char* name) {
    return name != nullptr && *name != '\0' && qv_node_class_name(name) == name;
}

bool isNumber(int streams) {
    return streams >= 0 || streams == QV_AS_DECLARED;
}

bool isClass(const QVNodeClass& nodeClass) {
    return isClassName(nodeClass.name) && nodeClass.create != nullptr &&
           isNumber(nodeClass.inputNum) && isNumber(nodeClass.outputNum);
}

}  // namespace

QVNodeRegistry& QVNodeRegistry::instance() {
    static QVNodeRegistry registry;
    return registry;
}

int QVNodeRegistry::registerClass(const QVNodeClass& nodeClass) {
    return registerClass(nodeClass, "");
}

int QVNodeRegistry::registerClass(const QVNodeClass& nodeClass, const std::string& origin) {
    if (!isClass(nodeClass)) {
        return -2;
    }
    Registered registered = {nodeClass, origin};
    registered.nodeClass.name = nullptr;  // the caller's
    const std::lock_guard<std::mutex> lock(mMutex);
    return mClasses.try_emplace(nodeClass.name, std::move(registered)).second ? 0 : -1;
}

bool QVNodeRegistry::unregisterClass(std::string_view name) {
    const std::lock_guard<std::mutex> lock(mMutex);
    const auto found = mClasses.find(name);
    if (found == mClasses.end()) {
        return false;
    }
    mClasses.erase(found);
    return true;
}

bool QVNodeRegistry::isRegistered(std::string_view name) const {
    const std::lock_guard<std::mutex> lock(mMutex);
    return mClasses.count(name) != 0;
}

std::vector<QVNodeRegistry::Entry> QVNodeRegistry::classes() const {
    const std::lock_guard<std::mutex> lock(mMutex);
    std::vector<Entry> entries;
    entries.reserve(mClasses.size());
    for (const auto& [name, registered] : mClasses) {
        entries.push_back({name, registered.origin});
    }
    return entries;
}

void QVNodeRegistry::setStub(bool stub) {
    const std::lock_guard<std::mutex> lock(mMutex);
    mStub = stub;
}

bool QVNodeRegistry::stub() const {
    const std::lock_guard<std::mutex> lock(mMutex);
    return mStub;
}

std::optional<QVNodeClass> QVNodeRegistry::find(std::string_view name) const {
    const std::lock_guard<std::mutex> lock(mMutex);
    const auto found = mClasses.find(name);
    if (found != mClasses.end()) {
        return found->second.nodeClass;
    }
    if (mStub && !name.empty()) {
        QVNodeClass stub;
        stub.create = createStub;
        return stub;
    }
    return std::nullopt;
}

std::string_view qv_node_class_name(std::string_view nodeName) {
    return nodeName.substr(0, nodeName.find('#'));
}
