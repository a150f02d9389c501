// The two ends of a stream at a task node.
//
// The node proxy creates one manager for each input and each output of a node
// (framework/qv_node_proxy.h). The parser binds each to its stream, in this
// order: initialize, then the format, then, for an input, the newest-only
// flag. It does so once for each manager, and stops at the first stream that
// has no name or format or that the task graph refuses: the managers behind
// that one are left as the proxy made them. The parser never frees a manager.
#ifndef QVGRAPH_FRAMEWORK_QV_STREAM_MANAGER_H_
#define QVGRAPH_FRAMEWORK_QV_STREAM_MANAGER_H_

#include <cstdint>
#include <string>

// The end at which a node takes data from a stream.
class QVInputStreamManager {
public:
    QVInputStreamManager() = default;
    virtual ~QVInputStreamManager() = default;

    // A manager is known by its address, which the node keeps.
    QVInputStreamManager(const QVInputStreamManager&) = delete;
    QVInputStreamManager& operator=(const QVInputStreamManager&) = delete;

    // Binds the manager to the stream `name`.
    //
    // `streamId` is what QVTaskGraphConfig::addInputStream returned for it,
    // never -1; `nodeId` is the id of the node that takes the stream. The
    // result is ignored: a manager that cannot be bound says so later.
    virtual int initialize(const std::string& name, int streamId, int nodeId) = 0;

    // Sets the format of the stream's data. Called after initialize. The
    // result is ignored.
    virtual int setStreamType(const std::string& format) = 0;

    // Not 0: the input keeps only the newest data ("remain_newest"). The
    // parser sets it to 1, after setStreamType, for every input of a node or
    // for none, and never clears it. A node that wants it of one input alone
    // sets it there in its own initialize, which is called afterwards.
    int32_t mRemainNewest = 0;
};

// The end at which a node gives data into a stream.
class QVOutputStreamManager {
public:
    QVOutputStreamManager() = default;
    virtual ~QVOutputStreamManager() = default;

    // A manager is known by its address, which the node keeps.
    QVOutputStreamManager(const QVOutputStreamManager&) = delete;
    QVOutputStreamManager& operator=(const QVOutputStreamManager&) = delete;

    // As QVInputStreamManager::initialize, with the id that
    // QVTaskGraphConfig::addOutputStream returned.
    virtual int initialize(const std::string& name, int streamId, int nodeId) = 0;

    // The format of the stream's data. The parser assigns it after initialize.
    std::string mStreamType;
};

#endif  // QVGRAPH_FRAMEWORK_QV_STREAM_MANAGER_H_
