// Cycles in a graph of names:
//
//   includeCycles({{"a", {"b"}}, {"b", {"a", "c"}}}) == {"a -> b -> a"}
#ifndef QVGRAPH_TESTS_MODULES_INCLUDE_CYCLES_H_
#define QVGRAPH_TESTS_MODULES_INCLUDE_CYCLES_H_

#include <map>
#include <set>
#include <string>

using Names = std::set<std::string>;

// What each name includes. A name without an entry includes nothing; an entry
// for the name itself is ignored.
using Includes = std::map<std::string, Names>;

// A shortest cycle through each edge that is part of a cycle, without
// duplicates, each written from its smallest name. Empty if there is no cycle.
Names includeCycles(const Includes& includes);

// All names that `name` includes, directly or through others; `name` itself only
// if it is part of a cycle.
Names reachableFrom(const std::string& name, const Includes& includes);

#endif  // QVGRAPH_TESTS_MODULES_INCLUDE_CYCLES_H_
