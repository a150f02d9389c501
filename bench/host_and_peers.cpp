#include "bench/host_cases.h"

Cases cases() {
    Cases all = hostCases();
    all.merge(peerCases());
    return all;
}
