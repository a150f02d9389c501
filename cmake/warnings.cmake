# qvgraph_warnings: the warnings that the project's own sources are built with.
add_library(qvgraph_warnings INTERFACE)
if(QVGRAPH_WARNINGS)
    target_compile_options(qvgraph_warnings INTERFACE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wdouble-promotion
        -Wformat=2 -Wcast-qual -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual
        -Wsuggest-override -Wmissing-declarations -Wredundant-decls -Wextra-semi
        -Wnull-dereference
        $<$<CXX_COMPILER_ID:GNU>:-Wcast-align=strict;-Wduplicated-cond;-Wduplicated-branches;-Wlogical-op>
        $<$<BOOL:${QVGRAPH_WERROR}>:-Werror>)
endif()
