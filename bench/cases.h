// What is measured, by name. The same cases are counted (counting.cpp) and
// timed (timing.cpp).
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

// Makes a case's work for a size. What it does itself is not measured. The
// work ends the process when it fails: nothing would be measured then.
using MakeWork = std::function<Work(const Size&)>;

using Cases = std::map<std::string, MakeWork>;

// What a program defines by the sources that it is linked with.
Cases cases();

// The libraries that do the like, as far as they are installed.
Cases peerCases();

#endif  // QVGRAPH_BENCH_CASES_H_
