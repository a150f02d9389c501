# Runs COMMAND in FOLDER. Compares its exit code with RESULT (0 if empty), its
# output with EXPECTED.txt, and its standard error with EXPECTED.err; if a file does
# not exist, no output is expected. Stores the actual output in ACTUAL.txt and
# ACTUAL.err.
#
#   cmake -D "COMMAND=..." -D RESULT=... -D FOLDER=... -D EXPECTED=...
#         -D ACTUAL=... -P compare.cmake
#
# The parser's source changes and loggers differ, so records are compared without
# line number and colour.
cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND ${COMMAND} WORKING_DIRECTORY ${FOLDER}
    RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE error)
string(ASCII 27 escape)
string(REGEX REPLACE "${escape}\\[[0-9]+m" "" error "${error}")
string(REGEX REPLACE "(QVGraphParser [^:]*):[0-9]+:" "\\1:LINE:" error "${error}")
string(REGEX REPLACE "\\([0-9]+\\): CHECK_UE" "(LINE): CHECK_UE" error "${error}")

# Reports an error if `text` differs from the content of the file.
function(compare text kind)
    set(expected "")
    if(EXISTS ${EXPECTED}.${kind})
        file(READ ${EXPECTED}.${kind} expected)
    endif()
    file(WRITE ${ACTUAL}.${kind} "${text}")
    if(NOT text STREQUAL expected)
        message(SEND_ERROR "expected in ${EXPECTED}.${kind}, found in ${ACTUAL}.${kind}:\n${text}")
    endif()
endfunction()

if(RESULT STREQUAL "")
    set(RESULT 0)
endif()
if(NOT result STREQUAL RESULT)
    message(SEND_ERROR "exit code ${result}, expected ${RESULT}")
endif()
compare("${output}" txt)
compare("${error}" err)
