// Nothing but the headers that CMake compiles with it.
