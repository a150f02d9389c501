// The smallest framework on which the parser can set nodes up: it stores nothing,
// and every node has one input and one output. What remains is the cost of the
// parser.
#ifndef QVGRAPH_BENCH_MINIMAL_FRAMEWORK_H_
#define QVGRAPH_BENCH_MINIMAL_FRAMEWORK_H_

#include <string>

#include "framework/qv_meta_data.h"
#include "framework/qv_node_proxy.h"
#include "framework/qv_task_graph.h"

// Finds the same string under every key.
class MinimalStore : public QvMetaData {
public:
    int setCString(const char* /*key*/, const char* /*value*/) override { return 0; }
    int setInt32(const char* /*key*/, int32_t /*value*/) override { return 0; }
    int setInt64(const char* /*key*/, int64_t /*value*/) override { return 0; }
    int setFloat(const char* /*key*/, float /*value*/) override { return 0; }
    int findCString(const char* /*key*/, const char** value) override {
        *value = "image:nv12";
        return 1;
    }
};

class MinimalGraph : public QVTaskGraphConfig {
public:
    int addInputStream(std::string /*name*/) override { return 0; }
    int addOutputStream(std::string /*name*/) override { return 0; }
};

// All owners share one record, with its node and its stream managers.
class MinimalOwner {
public:
    static _QVNodeInfo* info() { return &sRecord; }

private:
    static _QVNodeInfo sRecord;
};

#endif  // QVGRAPH_BENCH_MINIMAL_FRAMEWORK_H_
