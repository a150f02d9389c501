// What is wrong with a typed string.
#ifndef QVGRAPH_CHECK_TYPED_FAULT_H_
#define QVGRAPH_CHECK_TYPED_FAULT_H_

#include <optional>
#include <string>

#include "check/typed_string.h"

namespace qvgraph {

// Why the stored number differs from the string; for a message and its hint.
struct Fault {
    std::string message;
    std::string hint;
};

// The first fault of a typed string; nothing if its number is stored as written.
std::optional<Fault> faultIn(const TypedString& typed);

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_TYPED_FAULT_H_
