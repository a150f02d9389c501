// What the sources of the parser share; not for users of the parser.
#ifndef QVGRAPH_GRAPH_QV_GRAPH_INTERNAL_H_
#define QVGRAPH_GRAPH_QV_GRAPH_INTERNAL_H_

#include <cstdint>
#include <cstring>
#include <json11.hpp>
#include <string>

#include "framework/qv_log.h"
#include "framework/qv_meta_data.h"

// Every record of the parser carries these. It names the member function that
// the framework called; a source whose helpers report for that function says
// its name before it includes this file.
#define QV_LOG_MODULE 0x18181802U
#define QV_LOG_TAG "QVGraphParser"
#ifndef QV_LOG_FUNCTION
#define QV_LOG_FUNCTION __func__
#endif

// What a record begins with, up to and without the arguments of its format.
#define QV_RECORD(level, format) QV_LOG_MODULE, level, QV_LOG_TAG, format, QV_LOG_FUNCTION, __LINE__
#define QV_ERROR(text) QV_RECORD(QV_LOG_ERROR, QV_LOG_RED text QV_LOG_PLAIN)
#define QV_NOTICE(text) QV_RECORD(QV_LOG_NOTICE, text)
#define QV_INFO(text) QV_RECORD(QV_LOG_INFO, QV_LOG_BLUE text QV_LOG_PLAIN)

// The name with an index: `tag` and the index in decimal.
inline std::string indexedKey(const char* tag, int index) {
    std::string key(tag);
    key += util_to_string(index);
    return key;
}

// The pipe at an index; the null value when there is none.
inline const json11::Json& pipeOf(const json11::Json& root, int pipe) {
    return root[indexedKey("pipe_", pipe)];
}

// The member under `key`; the null value when there is none. For keys that a
// string does not hold in place: Json::operator[] would allocate one.
inline json11::Json memberUnder(const json11::Json& json, const char* key) {
    const size_t size = strlen(key);
    for (const auto& member : json.object_items()) {
        if (member.first.size() == size && memcmp(member.first.data(), key, size) == 0) {
            return member.second;
        }
    }
    return json11::Json();
}

// QVGraphParser::parseOptions, without a copy of the value.
int storeOption(QvMetaData* meta, const char* key, const json11::Json& value);

// The decimal number that `text` begins with, 0 when there is none. Reads as
// atoi does where long has 32 bits: blanks and a sign may come first, and what
// lies outside int32_t becomes the nearest end of its range.
int32_t leadingInt32(const char* text);

// The number without its fraction; what lies outside int32_t becomes the
// nearest end of its range, and not-a-number 0.
int32_t toInt32(double number);

#endif  // QVGRAPH_GRAPH_QV_GRAPH_INTERNAL_H_
