# Installs the project below WORK, builds a copy of the examples against it as a
# separate project, and compares the output of the programs and of the installed
# command.
#
#   cmake -D SOURCE=... -D BUILD=... -D WORK=... -D "ARGUMENTS=..."
#         -D "EMULATOR=..." -P installed.cmake
#
# ARGUMENTS are passed to CMake when it configures the examples.
cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE ${WORK})
set(prefix ${WORK}/prefix)

function(run)
    execute_process(COMMAND ${ARGV}
        RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        list(JOIN ARGV " " command)
        message(FATAL_ERROR "${command}\nexited with ${result}:\n${output}")
    endif()
endfunction()

# A copy can find only the installed files of the project.
file(COPY ${SOURCE}/examples DESTINATION ${WORK})
file(COPY ${SOURCE}/tests/examples/data DESTINATION ${WORK}/tests/examples)
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix})
run(${CMAKE_COMMAND} -S ${WORK}/examples -B ${WORK}/build ${ARGUMENTS}
    -D CMAKE_PREFIX_PATH=${prefix})
run(${CMAKE_COMMAND} --build ${WORK}/build)

# Every case runs, so that one failure does not hide another.
function(example name program)
    cmake_parse_arguments(PARSE_ARGV 2 arg "" "RESULT" "ARGUMENTS")
    set(path ${WORK}/build/${program})
    if(program STREQUAL "qvgraph")
        set(path ${prefix}/bin/qvgraph)
    endif()
    execute_process(
        COMMAND ${CMAKE_COMMAND}
            -D "COMMAND=${EMULATOR};${path};${arg_ARGUMENTS}"
            -D "RESULT=${arg_RESULT}" -D FOLDER=${WORK}/examples
            -D EXPECTED=${CMAKE_CURRENT_FUNCTION_LIST_DIR}/expected/${name}
            -D ACTUAL=${WORK}/actual/${name}
            -P ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/compare.cmake
        RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(SEND_ERROR "${name} differs")
    endif()
endfunction()
set(PLUGIN ${WORK}/build/libown_plugin.so)
include(${CMAKE_CURRENT_LIST_DIR}/cases.cmake)
