// The desk's node proxy, and the owner that undoes its work.
#include "framework/qv_node_proxy.h"

#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "host/qv_host_meta_data.h"
#include "host/qv_host_stream_managers.h"
#include "host/qv_node_owner.h"
#include "host/qv_node_registry.h"

namespace {

// The names that the proxy has seen, each under one index, from 1: a record
// that has not seen the proxy holds 0. They are kept as long as the process
// runs.
class NodeNames {
public:
    int32_t indexOf(std::string_view name) {
        const std::lock_guard<std::mutex> lock(mMutex);
        const auto known = mIndexes.find(name);
        if (known != mIndexes.end()) {
            return known->second;
        }
        mNames.emplace_back(name);
        const auto index = static_cast<int32_t>(mNames.size());
        mIndexes.emplace(mNames.back(), index);
        return index;
    }

    // The name at an index; empty when there is none.
    std::string_view at(int32_t index) {
        const std::lock_guard<std::mutex> lock(mMutex);
        const auto place = static_cast<size_t>(index) - 1;
        return place < mNames.size() ? std::string_view(mNames[place]) : std::string_view();
    }

private:
    std::mutex mMutex;
    std::deque<std::string> mNames;  // its elements never move
    std::unordered_map<std::string_view, int32_t> mIndexes;
};

NodeNames& nodeNames() {
    static NodeNames names;
    return names;
}

// The stores of nodes that brought none, by node. A node may be of a class that
// was compiled without type information: nothing can be asked of its store.
class SuppliedStores {
public:
    QvMetaData* supply(const QVTaskNodeBase* node) {
        const std::lock_guard<std::mutex> lock(mMutex);
        return (mStores[node] = std::make_unique<QVHostMetaData>()).get();
    }

    // The store that was supplied to a node, now the caller's; null when none
    // was.
    std::unique_ptr<QVHostMetaData> take(const QVTaskNodeBase* node) {
        const std::lock_guard<std::mutex> lock(mMutex);
        const auto found = mStores.find(node);
        if (found == mStores.end()) {
            return nullptr;
        }
        std::unique_ptr<QVHostMetaData> store = std::move(found->second);
        mStores.erase(found);
        return store;
    }

private:
    std::mutex mMutex;
    std::unordered_map<const QVTaskNodeBase*, std::unique_ptr<QVHostMetaData>> mStores;
};

// Never destroyed: an owner may be static, and end after it.
SuppliedStores& suppliedStores() {
    static auto* const stores = new SuppliedStores;
    return *stores;
}

template <typename Manager, typename Base>
void addManagers(int number, std::vector<Base*>* managers) {
    managers->reserve(number > 0 ? static_cast<size_t>(number) : 0);
    for (int i = 0; i < number; ++i) {
        managers->push_back(new Manager);
    }
}

int numberOf(int ofClass, int declared) {
    return ofClass == QV_AS_DECLARED ? declared : ofClass;
}

template <typename Pointer>
void deleteAll(const std::vector<Pointer>& objects) {
    for (const Pointer object : objects) {
        delete object;
    }
}

}  // namespace

void node_proxy_parse_stub_uid(_QVNodeInfo* info, const char* name) {
    info->stubUid = nodeNames().indexOf(name);
}

// What is made goes into the record at once, so that its owner frees it even
// when something behind it fails.
void node_proxy_node_create(_QVNodeInfo* info) {
    const std::string_view name = nodeNames().at(info->stubUid);
    const auto nodeClass = QVNodeRegistry::instance().find(qv_node_class_name(name));
    if (!nodeClass) {
        return;
    }
    info->node = nodeClass->create(info);
    if (info->node == nullptr) {
        return;
    }
    if (info->node->mOptions == nullptr) {
        info->node->mOptions = suppliedStores().supply(info->node);
    }
    addManagers<QVHostInputStreamManager>(numberOf(nodeClass->inputNum, info->inputNum),
                                          &info->inputStreams);
    addManagers<QVHostOutputStreamManager>(numberOf(nodeClass->outputNum, info->outputNum),
                                           &info->outputStreams);
}

QVNodeOwner::~QVNodeOwner() {
    // It outlives its node.
    const std::unique_ptr<QVHostMetaData> supplied = suppliedStores().take(mInfo.node);
    delete mInfo.node;
    deleteAll(mInfo.inputStreams);
    deleteAll(mInfo.outputStreams);
}
