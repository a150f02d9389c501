// Shared by the fuzz targets: the host framework's logger with a sink that checks
// every line, and statistics of the parser's results.
//
// A target looks for behaviour that the parser must never show. A failed
// assertion and the exception of a stream without a format are the documented
// results of a faulty configuration: they are counted but are not findings.
#ifndef QVGRAPH_FUZZ_HARNESS_H_
#define QVGRAPH_FUZZ_HARNESS_H_

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "host/qv_host_log.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

// If `condition` is false, prints `what` and aborts the process, which the fuzzer
// reports as a finding.
void require(bool condition, const char* what);

// Requires that `line` contains no control character, so that it can neither add
// lines nor control a terminal.
void requireHarmless(const std::string& line);

// While it exists, every record is formatted as a line and checked, and a failed
// assertion throws out of the parser.
class FuzzLog {
public:
    FuzzLog();

private:
    QVLogScope scope;
};

// Runs one call of the parser and counts its result. The process prints the
// counts when it ends.
void run(const std::function<void()>& call);

#endif  // QVGRAPH_FUZZ_HARNESS_H_
