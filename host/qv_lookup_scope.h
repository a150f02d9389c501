// Watches how options are looked up in the stores of the desk.
#ifndef QVGRAPH_HOST_QV_LOOKUP_SCOPE_H_
#define QVGRAPH_HOST_QV_LOOKUP_SCOPE_H_

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "framework/qv_meta_data.h"

// Notes, as long as it stands, each key that a QVHostMetaData is asked for as
// another type than its value has: whoever asked finds nothing.
//
//   const QVLookupScope lookups;
//   parser.initTaskNode(&graph, 0, 1, owner.info());
//   for (const QVLookupScope::Miss& miss : lookups.missesOf(owner.info()->node->mOptions)) ...
//
// Thread safety: a scope watches the stores of all threads. Scopes begin and
// end in one thread at a time, the last one first; of those that stand, the last
// one watches.
class QVLookupScope {
public:
    // A key that was missed.
    struct Miss {
        // As the store has it.
        std::string key;
        // The type that was asked for, by its place in QVHostMetaData::Value.
        size_t type = 0;
    };

    // Begins and ends to watch.
    QVLookupScope();
    ~QVLookupScope();

    // The keys of one store that were missed, in their order, with the type of
    // the last such lookup. A key that was found after it was missed is not
    // among them: a class may try one type after the other.
    std::vector<Miss> missesOf(const QvMetaData* store) const;

    // It stands for its scope and cannot leave it.
    QVLookupScope(const QVLookupScope&) = delete;
    QVLookupScope& operator=(const QVLookupScope&) = delete;

private:
    friend class QVHostMetaData;

    // Tells the scope that watches, if one does, of a key that has a value.
    static void note(const QvMetaData* store, const char* key, bool isFound, size_t type);

    QVLookupScope* mOuter;  // which watches again when this one has ended
    std::map<std::pair<const QvMetaData*, std::string>, size_t> mMisses;
};

#endif  // QVGRAPH_HOST_QV_LOOKUP_SCOPE_H_
