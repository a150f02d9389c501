#include "bench/desk_cases.h"

Cases cases() {
    Cases all = deskCases();
    all.merge(peerCases());
    return all;
}
