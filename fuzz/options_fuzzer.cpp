// Any bytes as a string option: the parser takes them apart as the C library's
// scan does.
#include <string>

#include "fuzz/harness.h"
#include "tests/support/same_as_scan.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string difference = differenceFromScan(std::string(data, data + size));
    require(difference.empty(), difference.c_str());
    return 0;
}
