#ifndef QVGRAPH_BENCH_REQUIRE_H_
#define QVGRAPH_BENCH_REQUIRE_H_

#include <cstdlib>

// Ends the process unless `condition` holds, in every build.
inline void require(bool condition) {
    if (!condition) {
        abort();
    }
}

#endif  // QVGRAPH_BENCH_REQUIRE_H_
