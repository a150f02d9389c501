# qvgraph_warnings: the warnings that the project's own sources are built with.
# GCC 12 reports null dereferences and overlapping copies inside libstdc++'s
# strings in C++20, where their functions are constexpr and inlined: C++20 targets
# omit these two warnings.
add_library(qvgraph_warnings INTERFACE)
if(QVGRAPH_WARNINGS)
    set(cxx20 $<IN_LIST:cxx_std_20,$<TARGET_PROPERTY:COMPILE_FEATURES>>)
    target_compile_options(qvgraph_warnings INTERFACE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wdouble-promotion
        -Wformat=2 -Wcast-qual -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual
        -Wsuggest-override -Wmissing-declarations -Wredundant-decls -Wextra-semi
        $<$<NOT:$<AND:$<CXX_COMPILER_ID:GNU>,${cxx20}>>:-Wnull-dereference>
        $<$<AND:$<CXX_COMPILER_ID:GNU>,${cxx20}>:-Wno-restrict>
        $<$<CXX_COMPILER_ID:GNU>:-Wcast-align=strict;-Wduplicated-cond;-Wduplicated-branches;-Wlogical-op>
        $<$<BOOL:${QVGRAPH_WERROR}>:-Werror>)
endif()
