// What the fuzz targets share: the desk's logger with a sink that looks at
// every line, and a count of what the parser did.
//
// A target looks for what the parser may never do. What it is meant to do with
// a configuration that is wrong, a failed assertion and the exception of a
// stream without a format, is counted and no finding.
#ifndef QVGRAPH_FUZZ_HARNESS_H_
#define QVGRAPH_FUZZ_HARNESS_H_

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "host/qv_host_log.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

// Ends the process with a message, as a finding, where `condition` does not
// hold.
void require(bool condition, const char* what);

// Requires that `line` has no control character, and so can neither add lines
// nor steer a terminal.
void requireHarmless(const std::string& line);

// While it exists, all records are made into lines and looked at, and a failed
// assertion leaves the parser.
class FuzzLog {
public:
    FuzzLog();

private:
    QVLogScope scope;
};

// Runs one call of the parser. The counts are printed at the end of the
// process.
void run(const std::function<void()>& call);

#endif  // QVGRAPH_FUZZ_HARNESS_H_
