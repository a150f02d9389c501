#include <cstdint>
#include <cstdlib>
#include <cstring>

// The conversion reports under the name of the public member function.
#define QV_LOG_FUNCTION "parseOptions"

#include "graph/qv_graph_internal.h"
#include "graph/qv_graph_parser.h"

using json11::Json;

namespace {

// The size of the buffers, and one more than the maximum length of a string
// option.
const size_t TEXT_SIZE = 128;

// A string option split into the parts of '<type>:<value>'. Ignores a second
// ':' and what follows it. A missing part is empty. Types are identified only by
// their hash.
struct TypedText {
    char text[TEXT_SIZE];
    char type[TEXT_SIZE];
    char value[TEXT_SIZE];
    uint64_t typeHash;
};

// The end of a word, and its BKDR string hash with the multiplier 131.
struct Word {
    const char* end;
    uint64_t hash;
};

// Copies a word, which ends before a ':' or at the end of the text.
Word copyWord(const char* text, char* word) {
    uint64_t hash = 0;
    for (; *text != '\0' && *text != ':'; ++text) {
        *word++ = *text;
        hash = hash * 131 + static_cast<unsigned char>(*text);
    }
    return {text, hash};
}

// Splits a string of `length` < TEXT_SIZE bytes as sscanf does with the pattern
// "%[^:]:%[^:]": a string that begins with ':' has neither a type nor a value.
void split(const char* string, size_t length, TypedText* typed) {
    qv_memset(typed->text, 0, sizeof(typed->text));
    qv_memset(typed->type, 0, sizeof(typed->type));
    qv_memset(typed->value, 0, sizeof(typed->value));
    util_snprintf(typed->text, length + 1, "%s", string);

    const Word type = copyWord(typed->text, typed->type);
    typed->typeHash = type.hash;
    if (type.end != typed->text && *type.end == ':') {
        copyWord(type.end + 1, typed->value);
    }
}

const uint64_t HASH_INT32 = 0x741fb9a32;
const uint64_t HASH_INT64 = 0x741fb9bbd;
const uint64_t HASH_FLOAT = 0x70d0ca4a8;
const uint64_t HASH_DOUBLE = 0x389ebe6defd;

// Stores a string by its type word, or as it is if it has none.
inline void storeTyped(QvMetaData* meta,
                       const char* key,
                       const char* string,
                       const TypedText& typed) {
    switch (typed.typeHash) {
        case HASH_INT32: {
            const int32_t number = leadingInt32(typed.value);
            meta->setInt32(key, number);
            qv_log(QV_INFO("key=%s value=%d"), key, number);
            break;
        }
        case HASH_INT64: {
            const auto number = static_cast<int64_t>(strtoull(typed.value, nullptr, 0));
            meta->setInt64(key, number);
            qv_log(QV_INFO("key=%s value=%lld"), key, static_cast<long long>(number));
            break;
        }
        case HASH_FLOAT: {
            const auto number = static_cast<float>(atof(typed.value));
            meta->setFloat(key, number);
            qv_log(QV_INFO("key=%s value=%f"), key, static_cast<double>(number));
            break;
        }
        case HASH_DOUBLE: {
            // Stores have no double; only the record shows the full value.
            const double number = atof(typed.value);
            meta->setFloat(key, static_cast<float>(number));
            qv_log(QV_INFO("key=%s value=%f"), key, number);
            break;
        }
        default:
            meta->setCString(key, string);
            break;
    }
}

}  // namespace

int storeOption(QvMetaData* meta, const char* key, const Json& value) {
    if (!value.is_string()) {
        if (value.is_number()) {
            meta->setInt32(key, toInt32(value.number_value()));
        }
        return 0;
    }

    const char* string = value.string_value().c_str();
    const size_t length = strlen(string);
    if (length >= TEXT_SIZE) {
        qv_err(QV_ERROR("value %s is too long!"), string);
        return -68;
    }

    TypedText typed;
    split(string, length, &typed);
    storeTyped(meta, key, string, typed);
    return 0;
}

int QVGraphParser::parseOptions(QvMetaData* meta, const char* key, Json value) const {
    return storeOption(meta, key, value);
}
