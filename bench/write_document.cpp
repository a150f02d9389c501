// Writes a document for measurements to standard output: PROGRAM NODES PIPE_SIZE.
#include <cstdio>
#include <cstdlib>

#include "bench/document.h"

int main(int count, char** arguments) {
    if (count != 3 || atoi(arguments[1]) <= 0 || atoi(arguments[2]) <= 0) {
        fprintf(stderr, "usage: %s NODES PIPE_SIZE\n", arguments[0]);
        return 2;
    }
    return fputs(typicalDocument(atoi(arguments[1]), atoi(arguments[2])).c_str(), stdout) < 0;
}
