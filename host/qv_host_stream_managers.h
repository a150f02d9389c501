/// @file
/// The stream managers of the host framework. They record what they were bound
/// to.
#ifndef QVGRAPH_HOST_QV_HOST_STREAM_MANAGERS_H_
#define QVGRAPH_HOST_QV_HOST_STREAM_MANAGERS_H_

#include <optional>
#include <string>

#include "framework/qv_stream_manager.h"

/// What initialize bound a manager to.
struct QVStreamBinding {
    std::string name;  ///< the name of the stream
    int streamId = 0;  ///< the id that the task graph returned for it
    int nodeId = 0;    ///< the node that produces or consumes the stream
};

/// The end at which a node consumes a stream.
class QVHostInputStreamManager : public QVInputStreamManager {
public:
    int initialize(const std::string& name, int streamId, int nodeId) override;
    int setStreamType(const std::string& format) override;

    /// Empty until initialize is called.
    const std::optional<QVStreamBinding>& binding() const { return mBinding; }

    /// Empty until setStreamType is called.
    const std::optional<std::string>& format() const { return mFormat; }

private:
    std::optional<QVStreamBinding> mBinding;
    std::optional<std::string> mFormat;
};

/// The end at which a node produces a stream. Its format is mStreamType.
class QVHostOutputStreamManager : public QVOutputStreamManager {
public:
    int initialize(const std::string& name, int streamId, int nodeId) override;

    /// Empty until initialize is called.
    const std::optional<QVStreamBinding>& binding() const { return mBinding; }

private:
    std::optional<QVStreamBinding> mBinding;
};

#endif  // QVGRAPH_HOST_QV_HOST_STREAM_MANAGERS_H_
