#include "host/qv_node_registry.h"

#include <utility>

#include "host/qv_host_task_node.h"

namespace {

QVTaskNodeBase* createStub(const _QVNodeInfo* /*info*/) {
    return new QVStubTaskNode;
}

bool isNumber(int streams) {
    return streams >= 0 || streams == QV_AS_DECLARED;
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
    if (!qv_node_class_fault(nodeClass).empty()) {
        return -2;
    }
    Registered registered = {nodeClass, origin};
    registered.nodeClass.name = nullptr;  // belongs to the caller
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

std::string qv_node_class_fault(const QVNodeClass& nodeClass) {
    const char* const rule = "; it must be 0 or more, or QV_AS_DECLARED";
    if (nodeClass.name == nullptr || *nodeClass.name == '\0') {
        return "it has no name";
    }
    if (qv_node_class_name(nodeClass.name) != nodeClass.name) {
        return "its name contains '#', which ends a class name";
    }
    if (nodeClass.create == nullptr) {
        return "it has no create function";
    }
    if (!isNumber(nodeClass.inputNum)) {
        return "its number of inputs is " + std::to_string(nodeClass.inputNum) + rule;
    }
    if (!isNumber(nodeClass.outputNum)) {
        return "its number of outputs is " + std::to_string(nodeClass.outputNum) + rule;
    }
    return "";
}
