# Builds a device whose framework has its own headers, and compares the output of
# its program. Then checks that an incomplete set of headers is rejected.
#
#   cmake -D SOURCE=... -D WORK=... -D "ARGUMENTS=..." -D "EMULATOR=..." -P run.cmake
#
# ARGUMENTS are passed to CMake when it configures the device.

file(REMOVE_RECURSE ${WORK})

function(configure folder)
    execute_process(
        COMMAND ${CMAKE_COMMAND} -S ${folder} -B ${WORK}/build -D QVGRAPH_SOURCE_DIR=${SOURCE} ${ARGUMENTS}
        RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    set(result ${result} PARENT_SCOPE)
    set(output ${output} PARENT_SCOPE)
endfunction()

configure(${CMAKE_CURRENT_LIST_DIR})
if(NOT result EQUAL 0)
    message(FATAL_ERROR "${output}")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --build ${WORK}/build
    RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "${output}")
endif()

execute_process(COMMAND ${EMULATOR} ${WORK}/build/device RESULT_VARIABLE result OUTPUT_VARIABLE output)
set(expected "parseConfigText: failed to json11::Json::parse(...), err=unexpected end of input
a field that only this framework has
Camera is node 8 and gives raw as nv12
")
if(NOT result EQUAL 0 OR NOT output STREQUAL expected)
    message(FATAL_ERROR "device exited with ${result} and printed\n${output}expected\n${expected}")
endif()

file(COPY ${CMAKE_CURRENT_LIST_DIR}/ DESTINATION ${WORK}/incomplete)
file(REMOVE ${WORK}/incomplete/framework/qv_task_graph.h ${WORK}/build/CMakeCache.txt)
configure(${WORK}/incomplete)
if(result EQUAL 0 OR NOT output MATCHES "QVGRAPH_FRAMEWORK_INCLUDE_DIR has no framework/qv_task_graph.h")
    message(FATAL_ERROR "an incomplete set of headers was accepted:\n${output}")
endif()
