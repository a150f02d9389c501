// Compares the conversion of a string option with the scan of the C library.
#ifndef QVGRAPH_TESTS_SUPPORT_SAME_AS_SCAN_H_
#define QVGRAPH_TESTS_SUPPORT_SAME_AS_SCAN_H_

#include <string>

// Lets a parser convert `text`, up to its first NUL, and compares the result with
// that of sscanf. Returns the difference; empty if there is none.
std::string differenceFromScan(const std::string& text);

#endif  // QVGRAPH_TESTS_SUPPORT_SAME_AS_SCAN_H_
