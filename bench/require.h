#ifndef QVGRAPH_BENCH_REQUIRE_H_
#define QVGRAPH_BENCH_REQUIRE_H_

#include <cstdlib>

// Ends the process where `condition` does not hold, in every build.
inline void require(bool condition) {
    if (!condition) {
        abort();
    }
}

#endif  // QVGRAPH_BENCH_REQUIRE_H_
