// Any bytes as a string option: the parser takes them apart as the C library's
// scan does. Ends the process where it does not.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "tests/support/same_as_scan.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string difference = differenceFromScan(std::string(data, data + size));
    if (!difference.empty()) {
        fprintf(stderr, "%s\n", difference.c_str());
        abort();
    }
    return 0;
}
