// The logger and the small helper functions that the parser requires.
#include "framework/qv_log.h"

#include <strings.h>

#include <cstdarg>
#include <cstdio>
#include <cstring>

// Discards notices and information: main.cpp reports which node failed.
int qv_log(uint32_t, int, const char*, const char*, const char*, int, ...) {
    return 0;
}

int qv_err(
    uint32_t, int, const char* tag, const char* format, const char* function, int line, ...) {
    fprintf(stderr, "%s %s:%d: ", tag, function, line);
    va_list arguments;
    va_start(arguments, line);
    vfprintf(stderr, format, arguments);
    va_end(arguments);
    fputs(strchr(format, '\n') == nullptr ? "\n" : "", stderr);  // checks have one
    return 0;
}

int util_snprintf(char* buffer, size_t size, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int length = vsnprintf(buffer, size, format, arguments);
    va_end(arguments);
    return length;
}

std::string util_to_string(int value) {
    return std::to_string(value);
}

int util_strcasecmp(const char* a, const char* b) {
    return strcasecmp(a, b);
}

void* qv_memset(void* memory, int value, size_t size) {
    return memset(memory, value, size);
}
