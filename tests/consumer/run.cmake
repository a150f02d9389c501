# Installs the project below WORK, builds the consumer against it and compares
# what its programs print.
#
#   cmake -D SOURCE=... -D BUILD=... -D WORK=... -D "ARGUMENTS=..."
#         -D "EMULATOR=..." -P run.cmake
#
# ARGUMENTS go to CMake when it configures the consumer.

file(REMOVE_RECURSE ${WORK})

function(run)
    execute_process(COMMAND ${ARGV} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        list(JOIN ARGV " " command)
        message(FATAL_ERROR "${command}\nended with ${result}:\n${output}")
    endif()
endfunction()

function(expect program expected)
    execute_process(COMMAND ${EMULATOR} ${WORK}/build/${program} WORKING_DIRECTORY ${SOURCE}
        RESULT_VARIABLE result OUTPUT_VARIABLE output)
    if(NOT result EQUAL 0 OR NOT output STREQUAL expected)
        message(FATAL_ERROR "${program} ended with ${result} and printed\n${output}expected\n${expected}")
    endif()
endfunction()

# The program in the README is the third consumer.
file(READ ${SOURCE}/README.md readme)
string(REGEX MATCH "```cpp\n([^`]*)```" block "${readme}")
file(WRITE ${WORK}/readme.cpp "${CMAKE_MATCH_1}")

run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/prefix)
run(${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR} -B ${WORK}/build ${ARGUMENTS}
    -D CMAKE_PREFIX_PATH=${WORK}/prefix -D README_PROGRAM=${WORK}/readme.cpp)
run(${CMAKE_COMMAND} --build ${WORK}/build)
expect(device "fps = 30
node 3 gives stream 7, raw
Camera has 0 inputs and 1 output, nv12
result 0
")
expect(desk "stream 0, raw: taken by node 3
result 0
")
expect(readme "frames
clean_frames
")
