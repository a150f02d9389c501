#include "host/qv_node_registry.h"

#include "host/qv_host_task_node.h"

namespace {

QVTaskNodeBase* createStub(const _QVNodeInfo* /*info*/) {
    return new QVStubTaskNode;
}

bool isClassName(const char* name) {
    return name != nullptr && *name != '\0' && qv_node_class_name(name) == name;
}

}  // namespace

QVNodeRegistry& QVNodeRegistry::instance() {
    static QVNodeRegistry registry;
    return registry;
}

int QVNodeRegistry::registerClass(const QVNodeClass& nodeClass) {
    if (!isClassName(nodeClass.name) || nodeClass.create == nullptr) {
        return -2;
    }
    QVNodeClass kept = nodeClass;
    kept.name = nullptr;  // the caller's
    const std::lock_guard<std::mutex> lock(mMutex);
    return mClasses.emplace(nodeClass.name, kept).second ? 0 : -1;
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

std::vector<std::string> QVNodeRegistry::classNames() const {
    const std::lock_guard<std::mutex> lock(mMutex);
    std::vector<std::string> names;
    names.reserve(mClasses.size());
    for (const auto& entry : mClasses) {
        names.push_back(entry.first);
    }
    return names;
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
        return found->second;
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
