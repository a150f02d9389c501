// What a string option is to become, by the C library's own scan.
#ifndef QVGRAPH_TESTS_SUPPORT_SAME_AS_SCAN_H_
#define QVGRAPH_TESTS_SUPPORT_SAME_AS_SCAN_H_

#include <string>

// Has a parser convert `text`, up to its first NUL, and compares with what
// sscanf finds in it. Returns how they differ; empty when they do not.
std::string differenceFromScan(const std::string& text);

#endif  // QVGRAPH_TESTS_SUPPORT_SAME_AS_SCAN_H_
