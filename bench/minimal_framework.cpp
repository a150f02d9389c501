#include "bench/minimal_framework.h"

#include <strings.h>

#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "framework/qv_log.h"

namespace {

class Node : public QVTaskNodeBase {
public:
    Node() { mOptions = &mStore; }
    int initialize(int /*nodeId*/,
                   _QVTaskNodeInfo* /*info*/,
                   const std::vector<QVInputStreamManager*>& /*inputs*/,
                   const std::vector<QVOutputStreamManager*>& /*outputs*/) override {
        return 0;
    }

private:
    MinimalStore mStore;
};

class Input : public QVInputStreamManager {
public:
    int initialize(const std::string& /*name*/, int /*streamId*/, int /*nodeId*/) override {
        return 0;
    }
    int setStreamType(const std::string& /*format*/) override { return 0; }
};

class Output : public QVOutputStreamManager {
public:
    int initialize(const std::string& /*name*/, int /*streamId*/, int /*nodeId*/) override {
        return 0;
    }
};

Node theNode;
Input theInput;
Output theOutput;

}  // namespace

int qv_log(uint32_t /*module*/,
           int /*level*/,
           const char* /*tag*/,
           const char* /*format*/,
           const char* /*function*/,
           int /*line*/,
           ...) {
    return 0;
}

int qv_err(uint32_t /*module*/,
           int /*level*/,
           const char* /*tag*/,
           const char* /*format*/,
           const char* /*function*/,
           int /*line*/,
           ...) {
    return 0;
}

// The parser uses it only to copy a complete string.
int util_snprintf(char* buffer, size_t size, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    memcpy(buffer, va_arg(arguments, const char*), size);
    va_end(arguments);
    return 0;
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

void node_proxy_parse_stub_uid(_QVNodeInfo* /*info*/, const char* /*name*/) {}

void node_proxy_node_create(_QVNodeInfo* /*info*/) {}

// As a node proxy leaves it.
_QVNodeInfo MinimalOwner::sRecord = {0, 0, 0, 0, &theNode, {&theInput}, {&theOutput}};
