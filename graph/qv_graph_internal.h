// Internals that the parser's sources share. Not for users of the parser.
#ifndef QVGRAPH_GRAPH_QV_GRAPH_INTERNAL_H_
#define QVGRAPH_GRAPH_QV_GRAPH_INTERNAL_H_

#include <cstdint>
#include <cstring>
#include <json11.hpp>
#include <string>

#include "framework/qv_log.h"
#include "framework/qv_meta_data.h"

// Every record of the parser carries these. The function is the member function
// that the framework called: a source whose helpers report on its behalf defines
// QV_LOG_FUNCTION before it includes this file.
#define QV_LOG_MODULE 0x18181802U
#define QV_LOG_TAG "QVGraphParser"
#ifndef QV_LOG_FUNCTION
#define QV_LOG_FUNCTION __func__
#endif

// The arguments of a record up to its format's own arguments.
#define QV_RECORD(level, format) QV_LOG_MODULE, level, QV_LOG_TAG, format, QV_LOG_FUNCTION, __LINE__
#define QV_ERROR(text) QV_RECORD(QV_LOG_ERROR, QV_LOG_RED text QV_LOG_PLAIN)
#define QV_NOTICE(text) QV_RECORD(QV_LOG_NOTICE, text)
#define QV_INFO(text) QV_RECORD(QV_LOG_INFO, QV_LOG_BLUE text QV_LOG_PLAIN)

// Returns `tag` followed by the index in decimal.
inline std::string indexedKey(const char* tag, int index) {
    std::string key(tag);
    key += util_to_string(index);
    return key;
}

// Returns the pipe at an index; the null value if there is none.
inline const json11::Json& pipeOf(const json11::Json& root, int pipe) {
    return root[indexedKey("pipe_", pipe)];
}

// Returns the member under `key`; the null value if there is none. For keys too
// long for the small-string buffer, for which Json::operator[] would allocate.
inline json11::Json memberUnder(const json11::Json& json, const char* key) {
    const size_t size = strlen(key);
    for (const auto& member : json.object_items()) {
        if (member.first.size() == size && memcmp(member.first.data(), key, size) == 0) {
            return member.second;
        }
    }
    return json11::Json();
}

// QVGraphParser::parseOptions without a copy of the value.
int storeOption(QvMetaData* meta, const char* key, const json11::Json& value);

// Returns the decimal number at the beginning of `text`; 0 if there is none.
// Reads as atoi does if long has 32 bits: blanks and a sign may precede the
// number, and a number outside the range of int32_t becomes the nearest limit.
int32_t leadingInt32(const char* text);

// Returns the number without its fraction. A number outside the range of int32_t
// becomes the nearest limit, and not-a-number becomes 0.
int32_t toInt32(double number);

#endif  // QVGRAPH_GRAPH_QV_GRAPH_INTERNAL_H_
