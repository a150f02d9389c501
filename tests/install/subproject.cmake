# Builds the project as part of another project.
include(${CMAKE_CURRENT_LIST_DIR}/run.cmake)

build_consumer(subdirectory -D HOW=subdirectory -D QVGRAPH_SOURCE_DIR=${SOURCE})
build_consumer(fetch -D HOW=fetch -D QVGRAPH_SOURCE_DIR=${SOURCE})
