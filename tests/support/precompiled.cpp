// Empty: CMake compiles the precompiled headers with it.
