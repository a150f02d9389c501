#include "host/qv_host_task_graph.h"

#include <algorithm>

void QVHostTaskGraph::beginNode(int node) {
    mNode = node;
    mRefusal.reset();
}

// Returns the stream of that name; creates it if it is new.
QVHostTaskGraph::Stream* QVHostTaskGraph::streamNamed(const std::string& name) {
    const int next = static_cast<int>(mStreams.size());
    const auto [known, isNew] = mIds.try_emplace(name, next);
    if (isNew) {
        try {
            mStreams.push_back(Stream{next, name, std::nullopt, std::pmr::vector<int>(&mMemory)});
        } catch (...) {
            mIds.erase(known);
            throw;
        }
    }
    return &mStreams[static_cast<size_t>(known->second)];
}

int QVHostTaskGraph::addInputStream(std::string name) {
    if (name.empty()) {
        mRefusal = Refusal{name, true, std::nullopt};
        return -1;
    }
    Stream* stream = streamNamed(name);
    std::pmr::vector<int>& consumers = stream->consumers;
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
