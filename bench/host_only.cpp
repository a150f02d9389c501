// Only the cases of the host framework: the libraries of the peers would change
// the heap, and with it the counts.
#include "bench/host_cases.h"

Cases cases() {
    return hostCases();
}
