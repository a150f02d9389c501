# Takes the program out of the README, builds it against an installed package,
# and compares what it prints.
#
#   cmake -D SOURCE=... -D BUILD=... -D WORK=... -D "ARGUMENTS=..."
#         -D "EMULATOR=..." -P run.cmake
#
# ARGUMENTS go to CMake when it configures the program's project.

file(REMOVE_RECURSE ${WORK})

function(run)
    execute_process(COMMAND ${ARGV} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        list(JOIN ARGV " " command)
        message(FATAL_ERROR "${command}\nended with ${result}:\n${output}")
    endif()
endfunction()

file(READ ${SOURCE}/README.md readme)
string(REGEX MATCH "```cpp\n([^`]*)```" block "${readme}")
file(WRITE ${WORK}/readme.cpp "${CMAKE_MATCH_1}")

run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/prefix)
run(${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR} -B ${WORK}/build ${ARGUMENTS}
    -D CMAKE_PREFIX_PATH=${WORK}/prefix -D README_PROGRAM=${WORK}/readme.cpp)
run(${CMAKE_COMMAND} --build ${WORK}/build)

execute_process(COMMAND ${EMULATOR} ${WORK}/build/readme WORKING_DIRECTORY ${SOURCE}
    RESULT_VARIABLE result OUTPUT_VARIABLE output)
set(expected "frames\nclean_frames\n")
if(NOT result EQUAL 0 OR NOT output STREQUAL expected)
    message(FATAL_ERROR "ended with ${result} and printed\n${output}expected\n${expected}")
endif()
