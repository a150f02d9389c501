#ifndef QVGRAPH_BENCH_HOST_CASES_H_
#define QVGRAPH_BENCH_HOST_CASES_H_

#include "bench/cases.h"

// json11 only, loading, live graphs on the host framework, and its logger.
Cases hostCases();

#endif  // QVGRAPH_BENCH_HOST_CASES_H_
