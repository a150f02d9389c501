// The framework's option store: typed values under text keys.
//
// Every task node carries one (QVTaskNodeBase::mOptions), and the framework
// hands others to the parser for executors and links. The parser writes
// options into a store and reads a node's stream names, formats and mode back
// from it. It never creates, copies or destroys one.
//
// Thread safety: the parser uses a store only while a call that received it
// (or its node) runs, from the calling thread.
#ifndef QVGRAPH_FRAMEWORK_QV_META_DATA_H_
#define QVGRAPH_FRAMEWORK_QV_META_DATA_H_

#include <cstdint>

// A store derives from this and overrides the five pure operations; all others
// have a default.
//
// The order of the virtual operations is part of the contract: code that was
// compiled against this header finds them by their place.
//
// Keys and strings that a setter receives point into the parsed document and
// are released with it: a store copies whatever it keeps. They are never null
// and end at their first NUL. Setters return 0 on success; the parser ignores
// their results.
class QvMetaData {
public:
    QvMetaData() = default;
    virtual ~QvMetaData() = default;

    // A store is used through pointers to this base; a copy would cut it.
    QvMetaData(const QvMetaData&) = delete;
    QvMetaData& operator=(const QvMetaData&) = delete;

    // Stores a copy of the string `value`, of at most 127 bytes, under `key`.
    //
    // The parser relies on nothing about a key that holds a value already. It
    // copies a node's option objects in a fixed order, so that later objects
    // win where the setters replace.
    virtual int setCString(const char* key, const char* value) = 0;

    // Stores a 32-bit integer under `key`.
    virtual int setInt32(const char* key, int32_t value) = 0;

    // Stores a 64-bit integer under `key`.
    virtual int setInt64(const char* key, int64_t value) = 0;

    // Stores a 32-bit float under `key`; infinities and not-a-number occur.
    virtual int setFloat(const char* key, float value) = 0;

    // Forgets what is stored under `key`. Returns non-zero when there was
    // something. Not called by the parser; the default forgets nothing.
    virtual int remove(const char* key);

    // Finds the string under `key`.
    //
    // Where a string is stored, sets `*value` to its text and returns
    // non-zero. The text belongs to the store and must stay valid until the key
    // is set again or removed: the parser reads it until initTaskNode returns.
    // Otherwise, a number included, returns 0 and leaves `*value` null or
    // pointing to a valid string.
    //
    // The parser sets `*value` to null before each lookup. It tests the result
    // for stream names only; for formats and modes it uses `*value` as left.
    virtual int findCString(const char* key, const char** value) = 0;

    // Find the value of that very type under `key`: where it is stored, set
    // `*value` and return non-zero; otherwise return 0 and leave `*value`
    // alone. Not called by the parser; the defaults find nothing.
    virtual int findInt32(const char* key, int32_t* value);
    virtual int findInt64(const char* key, int64_t* value);
    virtual int findFloat(const char* key, float* value);
};

inline int QvMetaData::remove(const char* /*key*/) {
    return 0;
}
inline int QvMetaData::findInt32(const char* /*key*/, int32_t* /*value*/) {
    return 0;
}
inline int QvMetaData::findInt64(const char* /*key*/, int64_t* /*value*/) {
    return 0;
}
inline int QvMetaData::findFloat(const char* /*key*/, float* /*value*/) {
    return 0;
}

#endif  // QVGRAPH_FRAMEWORK_QV_META_DATA_H_
