// Any bytes as a string option: the parser splits them as sscanf does, and writes
// the string, and the bytes as a double, to its log record as json11's dump does.
#include <cstring>
#include <string>

#include "fuzz/harness.h"
#include "tests/support/same_as_dump.h"
#include "tests/support/same_as_scan.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const FuzzLog log;
    const std::string text(data, data + size);
    double number = 0;
    if (size >= sizeof(number)) {
        memcpy(&number, data, sizeof(number));
    }
    for (const std::string& difference :
         {differenceFromScan(text), differenceFromDump(text), differenceFromDump(number)}) {
        require(difference.empty(), difference.c_str());
    }
    return 0;
}
