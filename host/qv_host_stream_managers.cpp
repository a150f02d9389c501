#include "host/qv_host_stream_managers.h"

int QVHostInputStreamManager::initialize(const std::string& name, int streamId, int nodeId) {
    mBinding = QVStreamBinding{name, streamId, nodeId};
    return 0;
}

int QVHostInputStreamManager::setStreamType(const std::string& format) {
    mFormat = format;
    return 0;
}

int QVHostOutputStreamManager::initialize(const std::string& name, int streamId, int nodeId) {
    mBinding = QVStreamBinding{name, streamId, nodeId};
    return 0;
}
