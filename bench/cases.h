// The cases to measure, by name. counting.cpp counts them and timing.cpp times
// them.
#ifndef QVGRAPH_BENCH_CASES_H_
#define QVGRAPH_BENCH_CASES_H_

#include <functional>
#include <map>
#include <string>

struct Size {
    int nodes;
    int pipeSize;
};

using Work = std::function<void()>;

// Creates the work of a case for a size; only the work is measured. Work that
// fails ends the process, because its cost would mean nothing.
using MakeWork = std::function<Work(const Size&)>;

using Cases = std::map<std::string, MakeWork>;

// Each program defines its own, in one of the sources that it is linked with.
Cases cases();

// Comparable libraries, if they are installed.
Cases peerCases();

#endif  // QVGRAPH_BENCH_CASES_H_
