// A class as on a device: compiled without type information, with its own option
// store, with log records and assertions.
#include <map>
#include <string>
#include <vector>

#include "framework/qv_log.h"
#include "host/qv_node_class.h"

#define QV_LOG_MODULE 7U
#define QV_LOG_TAG "Lens"
#define QV_LOG_FUNCTION "initialize"

namespace {

class Store : public QvMetaData {
public:
    int setCString(const char* key, const char* value) override {
        mTexts[key] = value;
        return 0;
    }
    int setInt32(const char* key, int32_t value) override {
        mNumbers[key] = value;
        return 0;
    }
    int setInt64(const char* key, int64_t value) override {
        mLongs[key] = value;
        return 0;
    }
    int setFloat(const char* key, float value) override {
        mReals[key] = value;
        return 0;
    }
    int findCString(const char* key, const char** value) override {
        const auto found = mTexts.find(key);
        if (found == mTexts.end()) {
            return 0;
        }
        *value = found->second.c_str();
        return 1;
    }
    int findInt32(const char* key, int32_t* value) override { return find(mNumbers, key, value); }
    int findInt64(const char* key, int64_t* value) override { return find(mLongs, key, value); }
    int findFloat(const char* key, float* value) override { return find(mReals, key, value); }

private:
    template <typename Value>
    static int find(const std::map<std::string, Value>& values, const char* key, Value* value) {
        const auto found = values.find(key);
        if (found == values.end()) {
            return 0;
        }
        *value = found->second;
        return 1;
    }

    std::map<std::string, std::string> mTexts;
    std::map<std::string, int32_t> mNumbers;
    std::map<std::string, int64_t> mLongs;
    std::map<std::string, float> mReals;
};

class Lens : public QVTaskNodeBase {
public:
    Lens() { mOptions = &mStore; }

    int initialize(int nodeId,
                   _QVTaskNodeInfo* /*info*/,
                   const std::vector<QVInputStreamManager*>& /*inputs*/,
                   const std::vector<QVOutputStreamManager*>& /*outputs*/) override {
        qv_err(QV_LOG_MODULE,
               QV_LOG_ERROR,
               QV_LOG_TAG,
               "node %d has no lens",
               QV_LOG_FUNCTION,
               __LINE__,
               nodeId);
        QV_ASSERT(nodeId != 1, "nodeId != 1");
        return 0;
    }

private:
    Store mStore;
};

QVTaskNodeBase* createLens(const _QVNodeInfo* /*info*/) {
    return new Lens;
}

}  // namespace

int qvgraph_register_nodes(QVNodeClassRegistry* registry) {
    QVNodeClass lens;
    lens.name = "Lens";
    lens.create = createLens;
    return registry->registerClass(lens);
}
