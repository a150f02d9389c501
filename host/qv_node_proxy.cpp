// The node proxy of the host framework, and the owner that frees what it creates.
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

// The names that the proxy has seen, indexed from 1: 0 marks a record that the
// proxy has not seen. Names are kept until the process ends.
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

    // Returns the name at an index; empty if there is none.
    std::string_view at(int32_t index) {
        const std::lock_guard<std::mutex> lock(mMutex);
        const auto position = static_cast<size_t>(index) - 1;
        return position < mNames.size() ? std::string_view(mNames[position]) : std::string_view();
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

// The stores supplied to nodes that have none, by node. A map, because a class
// may be compiled without type information, so the type of its store cannot be
// queried.
class SuppliedStores {
public:
    QvMetaData* supply(const QVTaskNodeBase* node) {
        const std::lock_guard<std::mutex> lock(mMutex);
        return (mStores[node] = std::make_unique<QVHostMetaData>()).get();
    }

    // Returns the store that was supplied to a node and passes its ownership to
    // the caller; null if none was supplied.
    std::unique_ptr<QVHostMetaData> release(const QVTaskNodeBase* node) {
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

// Never destroyed, because a static owner may be destroyed later.
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

// Each object goes into the record as soon as it is created, so that the owner
// frees it even if a later step fails.
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
    // The store must outlive its node.
    const std::unique_ptr<QVHostMetaData> supplied = suppliedStores().release(mInfo.node);
    delete mInfo.node;
    deleteAll(mInfo.inputStreams);
    deleteAll(mInfo.outputStreams);
}
