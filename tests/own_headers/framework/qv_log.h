// The minimum logger that the parser needs, without colours.
#pragma once

#include <stdlib.h>

#include <cstddef>
#include <cstdint>
#include <string>

#define QV_LOG_ERROR 2
#define QV_LOG_NOTICE 5
#define QV_LOG_INFO 6
#define QV_LOG_RED ""
#define QV_LOG_BLUE ""
#define QV_LOG_PLAIN ""

int qv_log(uint32_t, int, const char*, const char*, const char*, int, ...);
int qv_err(uint32_t, int, const char*, const char*, const char*, int, ...);
int util_snprintf(char*, size_t, const char*, ...);
std::string util_to_string(int);
int util_strcasecmp(const char*, const char*);
void* qv_memset(void*, int, size_t);

#define QV_ASSERT(condition, text) \
    if (!(condition)) {            \
        abort();                   \
    }
#define CHECK_UE(actual, unexpected) \
    if ((actual) == (unexpected)) {  \
        return result;               \
    }
