/// @file
/// The framework's option store: typed values under string keys.
///
/// Every task node has one (QVTaskNodeBase::mOptions); for executors and links,
/// the framework passes stores to the parser. The parser writes options into a
/// store, and reads a node's stream names, formats and mode back from it. It
/// never creates, copies or destroys a store.
///
/// Thread safety: the parser uses a store only during the call that received
/// the store or its node, and only from the calling thread.
#ifndef QVGRAPH_FRAMEWORK_QV_META_DATA_H_
#define QVGRAPH_FRAMEWORK_QV_META_DATA_H_

#include <cstdint>

/// The base class of option stores. A store overrides the five pure operations;
/// all others have a default.
///
/// The order of the virtual operations is part of the contract: code compiled
/// against this header finds them by their slot in the virtual table.
///
/// Keys and strings passed to a setter point into the parsed document and are
/// released with it, so a store copies whatever it keeps. They are never null
/// and end at their first NUL. Setters return 0 on success; the parser ignores
/// their results.
class QvMetaData {
public:
    QvMetaData() = default;
    virtual ~QvMetaData() = default;

    /// Not copyable: a store is used through pointers to this base class, and
    /// a copy would slice it.
    QvMetaData(const QvMetaData&) = delete;
    /// Not assignable, for the same reason.
    QvMetaData& operator=(const QvMetaData&) = delete;

    /// Stores a copy of the string `value`, of at most 127 bytes, under `key`.
    ///
    /// The parser does not rely on what happens if the key already has a value.
    /// It copies a node's option objects in a fixed order, so with setters that
    /// replace, later objects win.
    virtual int setCString(const char* key, const char* value) = 0;

    /// Stores a 32-bit integer under `key`.
    virtual int setInt32(const char* key, int32_t value) = 0;

    /// Stores a 64-bit integer under `key`.
    virtual int setInt64(const char* key, int64_t value) = 0;

    /// Stores a 32-bit float under `key`. Infinities and not-a-number occur.
    virtual int setFloat(const char* key, float value) = 0;

    /// Removes the value under `key`. Returns non-zero if there was one. The
    /// parser does not call it; the default removes nothing and returns 0.
    virtual int remove(const char* key);

    /// Finds the string under `key`.
    ///
    /// If a string is stored there, sets `*value` to it and returns non-zero.
    /// The string belongs to the store and must stay valid until the key is set
    /// again or removed: the parser reads it until initTaskNode returns.
    /// Otherwise, also if the key holds a number, returns 0 and leaves `*value`
    /// null or pointing to a valid string.
    ///
    /// The parser sets `*value` to null before each lookup. It tests the result
    /// only for stream names; for formats and modes it uses `*value` without
    /// testing the result.
    virtual int findCString(const char* key, const char** value) = 0;

    /// Finds the 32-bit integer under `key`: if a value of exactly this type is
    /// stored, sets `*value` and returns non-zero. Otherwise returns 0 and leaves
    /// `*value` unchanged. The parser does not call it; the default finds
    /// nothing.
    virtual int findInt32(const char* key, int32_t* value);

    /// As findInt32, for a 64-bit integer.
    virtual int findInt64(const char* key, int64_t* value);

    /// As findInt32, for a 32-bit float.
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
