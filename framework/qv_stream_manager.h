/// @file
/// The two ends of a stream at a task node.
///
/// The node proxy creates one manager for each input and each output of a node
/// (framework/qv_node_proxy.h). The parser binds each manager to its stream
/// once, in this order: initialize, then the format, then, for an input, the
/// latest-only flag. It stops at the first stream that has no name or no
/// format or that the task graph refuses; the managers after that one stay as
/// the proxy created them. The parser never deletes a manager.
#ifndef QVGRAPH_FRAMEWORK_QV_STREAM_MANAGER_H_
#define QVGRAPH_FRAMEWORK_QV_STREAM_MANAGER_H_

#include <cstdint>
#include <string>

/// The end at which a node consumes data from a stream.
class QVInputStreamManager {
public:
    QVInputStreamManager() = default;
    virtual ~QVInputStreamManager() = default;

    /// Not copyable: the node keeps the manager's address.
    QVInputStreamManager(const QVInputStreamManager&) = delete;
    /// Not assignable, for the same reason.
    QVInputStreamManager& operator=(const QVInputStreamManager&) = delete;

    /// Binds the manager to the stream `name`.
    ///
    /// `streamId` is the id that QVTaskGraphConfig::addInputStream returned for
    /// the stream, never -1; `nodeId` is the id of the consuming node. The
    /// parser ignores the result: a manager that cannot be bound must report
    /// that later.
    virtual int initialize(const std::string& name, int streamId, int nodeId) = 0;

    /// Sets the format of the stream's data. Called after initialize. The
    /// parser ignores the result.
    virtual int setStreamType(const std::string& format) = 0;

    /// Non-zero: the input keeps only the latest data ("remain_newest"). The
    /// parser sets it to 1, after setStreamType, either for all inputs of a
    /// node or for none, and never clears it. A node that wants it for a single
    /// input sets it in its own initialize, which is called afterwards.
    int32_t mRemainNewest = 0;
};

/// The end at which a node produces data for a stream.
class QVOutputStreamManager {
public:
    QVOutputStreamManager() = default;
    virtual ~QVOutputStreamManager() = default;

    /// Not copyable: the node keeps the manager's address.
    QVOutputStreamManager(const QVOutputStreamManager&) = delete;
    /// Not assignable, for the same reason.
    QVOutputStreamManager& operator=(const QVOutputStreamManager&) = delete;

    /// As QVInputStreamManager::initialize, with the id that
    /// QVTaskGraphConfig::addOutputStream returned.
    virtual int initialize(const std::string& name, int streamId, int nodeId) = 0;

    /// The format of the stream's data. The parser assigns it after initialize.
    std::string mStreamType;
};

#endif  // QVGRAPH_FRAMEWORK_QV_STREAM_MANAGER_H_
