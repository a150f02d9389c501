#pragma once

#include <cstdint>
#include <string>

class QVInputStreamManager {
public:
    void initialize(const std::string&, int, int) {}
    void setStreamType(const std::string&) {}
    int32_t mRemainNewest = 0;
};

class QVOutputStreamManager {
public:
    void initialize(const std::string& streamName, int, int) { name = streamName; }
    std::string mStreamType;
    std::string name;
};
