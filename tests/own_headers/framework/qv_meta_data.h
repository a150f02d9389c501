// A store that is a single class without virtual operations.
#pragma once

#include <cstdint>
#include <map>
#include <string>

class QvMetaData {
public:
    int setCString(const char* key, const char* value) {
        texts[key] = value;
        return 0;
    }
    int setInt32(const char*, int32_t) { return 0; }
    int setInt64(const char*, int64_t) { return 0; }
    int setFloat(const char*, float) { return 0; }
    bool findCString(const char* key, const char** value) {
        const auto found = texts.find(key);
        if (found != texts.end()) {
            *value = found->second.c_str();
        }
        return found != texts.end();
    }

private:
    std::map<std::string, std::string> texts;
};
