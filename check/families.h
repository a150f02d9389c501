// The nodes, executors and links of a pipe, as families of keys with an id.
#ifndef QVGRAPH_CHECK_FAMILIES_H_
#define QVGRAPH_CHECK_FAMILIES_H_

#include <vector>

#include "model/model.h"

namespace qvgraph {

// A member of a family, with the id that the parser reads from its key.
struct Member {
    const Value* value = nullptr;
    int id = 0;
    bool canonical = false;  // the id maps back to this member
};

// The nodes, executors or links of a pipe, in the parser's order.
struct Family {
    const char* prefix;
    const char* outcomeIfOther;  // what the device does if the id maps to another member
    const char* outcomeIfNone;   // and if it maps to none
    std::vector<Member> members;
};

std::vector<Family> familiesOf(const Pipe& pipe);

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_FAMILIES_H_
