// The text of an option in its record, by json11's own dump.
#ifndef QVGRAPH_TESTS_SUPPORT_SAME_AS_DUMP_H_
#define QVGRAPH_TESTS_SUPPORT_SAME_AS_DUMP_H_

#include <json11.hpp>
#include <string>

// Has a parser copy an option of that value, and compares its record with the
// text that Json::dump gives. Returns how they differ; empty when they do not.
std::string differenceFromDump(const json11::Json& value);

#endif  // QVGRAPH_TESTS_SUPPORT_SAME_AS_DUMP_H_
