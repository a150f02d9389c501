#ifndef QVGRAPH_BENCH_DESK_CASES_H_
#define QVGRAPH_BENCH_DESK_CASES_H_

#include "bench/cases.h"

// json11 alone, loading, live graphs on the desk's framework, its logger.
Cases deskCases();

#endif  // QVGRAPH_BENCH_DESK_CASES_H_
