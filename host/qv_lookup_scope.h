/// @file
/// Records option lookups in the host framework's stores.
#ifndef QVGRAPH_HOST_QV_LOOKUP_SCOPE_H_
#define QVGRAPH_HOST_QV_LOOKUP_SCOPE_H_

#include <cstddef>
#include <string>
#include <vector>

#include "framework/qv_meta_data.h"

/// While it exists, records each lookup in a QVHostMetaData.
/// @code
/// const QVLookupScope lookups;
/// parser.initTaskNode(&graph, 0, 1, owner.info());
/// for (const QVLookupScope::Miss& miss : lookups.missesOf(owner.info()->node->mOptions)) ...
/// @endcode
///
/// Thread safety: a scope watches the stores of all threads. Scopes must be
/// created and destroyed by one thread at a time, in nested order; only the
/// innermost one watches.
class QVLookupScope {
public:
    /// What a lookup finds.
    enum class Result : unsigned char {
        Found,          ///< a value of the requested type
        DifferentType,  ///< a value of a different type: the lookup fails
        Missing,        ///< no value
    };

    /// A lookup of a key.
    struct Lookup {
        /// The store, which need not exist any more.
        const QvMetaData* store = nullptr;
        /// The key, as it was requested.
        std::string key;
        /// The requested type, as an index into QVHostMetaData::Value.
        unsigned char type = 0;
        /// What the lookup found.
        Result result = Result::Missing;
    };

    /// A key that was looked up with the wrong type.
    struct Miss {
        /// The key, as the store has it.
        std::string key;
        /// The requested type, as an index into QVHostMetaData::Value.
        size_t type = 0;
    };

    /// Starts watching.
    QVLookupScope();
    /// Stops watching; the enclosing scope, if any, resumes.
    ~QVLookupScope();

    /// Returns all lookups so far, in their order.
    std::vector<Lookup> lookups() const;

    /// Returns the number of lookups so far.
    size_t count() const;

    /// Returns the keys of `store` that were missed, in key order, each with
    /// the type of its last such lookup. A key that was found after it was
    /// missed is not included, since a class may try several types in turn.
    std::vector<Miss> missesOf(const QvMetaData* store) const;

    /// Not copyable: the object is tied to its scope.
    QVLookupScope(const QVLookupScope&) = delete;
    /// Not assignable, for the same reason.
    QVLookupScope& operator=(const QVLookupScope&) = delete;

private:
    friend class QVHostMetaData;

    // Reports a lookup to the watching scope, if there is one.
    static void note(const QvMetaData* store, const char* key, size_t type, Result result);

    QVLookupScope* mOuter;  // resumes watching after this one
    std::vector<Lookup> mLookups;
};

#endif  // QVGRAPH_HOST_QV_LOOKUP_SCOPE_H_
