#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "framework/qv_meta_data.h"
#include "framework/qv_stream_manager.h"

struct _QVTaskNodeInfo {
    int32_t nodeId;
    std::string nodeName;
};

// The only node class of this device.
class QVTaskNodeBase {
public:
    void initialize(int nodeId,
                    _QVTaskNodeInfo* info,
                    const std::vector<QVInputStreamManager*>&,
                    const std::vector<QVOutputStreamManager*>& outputs) {
        printf("%s is node %d and gives %s as %s\n",
               info->nodeName.c_str(),
               nodeId,
               outputs[0]->name.c_str(),
               outputs[0]->mStreamType.c_str());
    }
    QvMetaData* mOptions = nullptr;
};
