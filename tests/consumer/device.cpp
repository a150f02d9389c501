// A framework of its own, as small as it gets, around the installed parser.
#include <strings.h>

#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "framework/qv_log.h"
#include "graph/qv_graph_parser.h"

int qv_log(uint32_t, int, const char*, const char*, const char*, int, ...) {
    return 0;
}

int qv_err(uint32_t, int, const char*, const char* format, const char*, int line, ...) {
    va_list arguments;
    va_start(arguments, line);
    const int written = vprintf(format, arguments);
    va_end(arguments);
    return written;
}

int util_snprintf(char* buffer, size_t size, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int length = vsnprintf(buffer, size, format, arguments);
    va_end(arguments);
    return length;
}

std::string util_to_string(int value) {
    return std::to_string(value);
}

int util_strcasecmp(const char* a, const char* b) {
    return strcasecmp(a, b);
}

void* qv_memset(void* memory, int value, size_t size) {
    return memset(memory, value, size);
}

namespace {

class Store : public QvMetaData {
public:
    int setCString(const char* key, const char* value) override {
        mTexts[key] = value;
        return 0;
    }
    int setInt32(const char* key, int32_t value) override {
        printf("%s = %d\n", key, value);
        return 0;
    }
    int setInt64(const char*, int64_t) override { return 0; }
    int setFloat(const char*, float) override { return 0; }
    int findCString(const char* key, const char** value) override {
        const auto found = mTexts.find(key);
        if (found == mTexts.end()) {
            return 0;
        }
        *value = found->second.c_str();
        return 1;
    }

private:
    std::map<std::string, std::string> mTexts;
};

class Output : public QVOutputStreamManager {
public:
    int initialize(const std::string& name, int streamId, int nodeId) override {
        printf("node %d gives stream %d, %s\n", nodeId, streamId, name.c_str());
        return 0;
    }
};

class Node : public QVTaskNodeBase {
public:
    Node() { mOptions = &mStore; }
    int initialize(int,
                   _QVTaskNodeInfo* info,
                   const std::vector<QVInputStreamManager*>& inputs,
                   const std::vector<QVOutputStreamManager*>& outputs) override {
        printf("%s has %d inputs and %d output, %s\n",
               info->nodeName.c_str(),
               static_cast<int>(inputs.size()),
               static_cast<int>(outputs.size()),
               outputs[0]->mStreamType.c_str());
        return 0;
    }

private:
    Store mStore;
};

class Graph : public QVTaskGraphConfig {
public:
    int addInputStream(std::string) override { return -1; }
    int addOutputStream(std::string) override { return 7; }
};

Node the_node;
Output the_output;

}  // namespace

void node_proxy_parse_stub_uid(_QVNodeInfo*, const char*) {}

void node_proxy_node_create(_QVNodeInfo* info) {
    info->node = &the_node;
    info->outputStreams.push_back(&the_output);
}

int main() {
    QVGraphParser parser;
    if (parser.parseConfigText(R"({"pipe_0": {"node_3": {
            "node_opts": {"node_name": "Camera", "fps": 30},
            "stream_opts": {"stream_output": "raw", "stream_fmt_out": "nv12"}
        }}})") != 0) {
        return 1;
    }
    Graph graph;
    _QVNodeInfo info;
    const int result = parser.initTaskNode(&graph, 0, parser.getNodeIDByIndex(0, 0), &info);
    printf("result %d\n", result);
    return result;
}
