#include "host/qv_host_task_graph.h"

#include <algorithm>

void QVHostTaskGraph::beginNode(int node) {
    mNode = node;
    mRefusal.reset();
}

// The stream of that name, made when it is new.
QVHostTaskGraph::Stream* QVHostTaskGraph::streamNamed(const std::string& name) {
    const auto known = mIds.find(name);
    if (known != mIds.end()) {
        return &mStreams[static_cast<size_t>(known->second)];
    }
    Stream stream;
    stream.id = static_cast<int>(mStreams.size());
    stream.name = name;
    mStreams.push_back(stream);
    mIds.emplace(name, stream.id);
    return &mStreams.back();
}

int QVHostTaskGraph::addInputStream(std::string name) {
    if (name.empty()) {
        mRefusal = Refusal{name, true, std::nullopt};
        return -1;
    }
    Stream* stream = streamNamed(name);
    std::vector<int>& consumers = stream->consumers;
    if (std::find(consumers.begin(), consumers.end(), mNode) == consumers.end()) {
        consumers.push_back(mNode);
    }
    return stream->id;
}

int QVHostTaskGraph::addOutputStream(std::string name) {
    if (name.empty()) {
        mRefusal = Refusal{name, false, std::nullopt};
        return -1;
    }
    Stream* stream = streamNamed(name);
    if (stream->producer) {
        mRefusal = Refusal{name, false, stream->producer};
        return -1;
    }
    stream->producer = mNode;
    return stream->id;
}
