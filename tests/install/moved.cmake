# Installs the project, moves the installation, and uses it in the new location:
# the command, the CMake package, and the files for pkg-config.
include(${CMAKE_CURRENT_LIST_DIR}/run.cmake)

run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/before)
file(RENAME ${WORK}/before ${WORK}/after)

file(GLOB_RECURSE files RELATIVE ${WORK}/after ${WORK}/after/bin/* ${WORK}/after/share/*)
list(SORT files)
list(JOIN files "\n" files)
expect("${files}" "bin/qvgraph
share/bash-completion/completions/qvgraph
share/man/man1/qvgraph.1
share/man/man5/qvgraph-config.5
share/qvgraph/graph.schema.json
share/zsh/site-functions/_qvgraph")

run(${EMULATOR} ${WORK}/after/bin/qvgraph schema)
file(READ ${WORK}/after/share/qvgraph/graph.schema.json schema)
expect("${printed}" "${schema}")

# No file contains the old location or the build directory.
foreach(place ${WORK}/before ${BUILD} ${SOURCE})
    execute_process(COMMAND grep -rlI -e ${place} ${WORK}/after OUTPUT_VARIABLE found)
    expect("${found}" "")
endforeach()

build_consumer(package -D HOW=package -D CMAKE_PREFIX_PATH=${WORK}/after)
if(NOT EMULATOR)
    build_by_pkg_config(pkg-config ${WORK}/after)
endif()

# A version or component that does not exist is rejected.
foreach(request "0.1 CONFIG" "1.0 CONFIG" "0.2 CONFIG COMPONENTS engine")
    file(WRITE ${WORK}/wrong/CMakeLists.txt "cmake_minimum_required(VERSION 3.25)
project(wrong LANGUAGES CXX)
find_package(qvgraph ${request})
message(STATUS \"found: \${qvgraph_FOUND}\")
message(STATUS \"reason: \${qvgraph_NOT_FOUND_MESSAGE}\")
")
    run(${CMAKE_COMMAND} -S ${WORK}/wrong -B ${WORK}/wrong/build ${ARGUMENTS}
        -D CMAKE_PREFIX_PATH=${WORK}/after)
    if(NOT printed MATCHES "found: (0|FALSE)\n")
        message(SEND_ERROR "${request} is accepted:\n${printed}")
    endif()
endforeach()
# The last request is for the component: the reason names it and the existing
# ones.
string(REGEX MATCH "reason: [^\n]*" reason "${printed}")
expect("${reason}" "reason: There is no component 'engine' here, only framework, parser, host.")
