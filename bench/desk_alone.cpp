// Nothing else in the program: the libraries of the peers would change the heap
// that is counted on.
#include "bench/desk_cases.h"

Cases cases() {
    return deskCases();
}
