// Times every case with Google Benchmark.
#include <benchmark/benchmark.h>

#include "bench/cases.h"

namespace {

void measure(benchmark::State& state, const MakeWork& makeWork) {
    const Work work = makeWork({static_cast<int>(state.range(0)), 10});
    for (const auto iteration : state) {
        static_cast<void>(iteration);
        work();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

}  // namespace

int main(int count, char** arguments) {
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments)) {
        return 2;
    }
    for (const auto& [name, makeWork] : cases()) {
        benchmark::RegisterBenchmark(
            name.c_str(), [make = makeWork](benchmark::State& state) { measure(state, make); })
            ->Arg(100)
            ->Arg(1000)
            ->Unit(benchmark::kMicrosecond);
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
