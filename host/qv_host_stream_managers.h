// The desk's stream managers: they hold what they were bound to.
#ifndef QVGRAPH_HOST_QV_HOST_STREAM_MANAGERS_H_
#define QVGRAPH_HOST_QV_HOST_STREAM_MANAGERS_H_

#include <optional>
#include <string>

#include "framework/qv_stream_manager.h"

// What a manager was bound to by initialize.
struct QVStreamBinding {
    std::string name;  // the stream's
    int streamId = 0;  // what the task graph gave for it
    int nodeId = 0;    // the node that gives or takes the stream
};

// The end at which a node takes a stream.
class QVHostInputStreamManager : public QVInputStreamManager {
public:
    int initialize(const std::string& name, int streamId, int nodeId) override;
    int setStreamType(const std::string& format) override;

    // Empty until initialize has been called.
    const std::optional<QVStreamBinding>& binding() const { return mBinding; }

    // Empty until setStreamType has been called.
    const std::optional<std::string>& format() const { return mFormat; }

private:
    std::optional<QVStreamBinding> mBinding;
    std::optional<std::string> mFormat;
};

// The end at which a node gives a stream. Its format is mStreamType.
class QVHostOutputStreamManager : public QVOutputStreamManager {
public:
    int initialize(const std::string& name, int streamId, int nodeId) override;

    // Empty until initialize has been called.
    const std::optional<QVStreamBinding>& binding() const { return mBinding; }

private:
    std::optional<QVStreamBinding> mBinding;
};

#endif  // QVGRAPH_HOST_QV_HOST_STREAM_MANAGERS_H_
