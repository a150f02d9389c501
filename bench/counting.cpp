// Counts the instructions of one case:
//
//   valgrind --tool=callgrind --instr-atstart=no PROGRAM CASE NODES [PIPE_SIZE]
//
// Runs the work twice and counts the second run: by then the dynamic linker has
// bound its functions and the heap has its memory.
#include <valgrind/callgrind.h>

#include <cstdio>
#include <cstdlib>

#include "bench/cases.h"

int main(int count, char** arguments) {
    const Cases all = cases();
    const auto found = count >= 3 ? all.find(arguments[1]) : all.end();
    if (found == all.end() || atoi(arguments[2]) <= 0) {
        fprintf(stderr, "usage: %s CASE NODES [PIPE_SIZE]\n", arguments[0]);
        for (const auto& [name, makeWork] : all) {
            printf("%s\n", name.c_str());
        }
        return 2;
    }
    const Size size = {atoi(arguments[2]), count > 3 ? atoi(arguments[3]) : 10};
    const Work work = found->second(size);
    work();
    CALLGRIND_START_INSTRUMENTATION;
    work();
    CALLGRIND_STOP_INSTRUMENTATION;
    return 0;
}
