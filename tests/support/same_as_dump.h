// Compares the log record of an option with json11's own dump.
#ifndef QVGRAPH_TESTS_SUPPORT_SAME_AS_DUMP_H_
#define QVGRAPH_TESTS_SUPPORT_SAME_AS_DUMP_H_

#include <json11.hpp>
#include <string>

// Lets a parser copy an option with that value, and compares the log record with the
// result of Json::dump. Returns the difference; empty if there is none.
std::string differenceFromDump(const json11::Json& value);

#endif  // QVGRAPH_TESTS_SUPPORT_SAME_AS_DUMP_H_
