#pragma once

#include "framework/qv_task_node.h"

struct _QVNodeInfo {
    int32_t nodeId = 0;
    int32_t inputNum = 0;
    int32_t outputNum = 0;
    int32_t unused = 0;
    QVTaskNodeBase* node = nullptr;
    std::vector<QVInputStreamManager*> inputStreams;
    std::vector<QVOutputStreamManager*> outputStreams;
    const char* board = "a field that only this framework has";
};

void node_proxy_parse_stub_uid(_QVNodeInfo*, const char*);
void node_proxy_node_create(_QVNodeInfo*);
