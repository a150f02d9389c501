# Runs COMMAND in FOLDER and compares its exit code with RESULT (0 when empty)
# and all that it prints with EXPECTED.txt and, for standard error,
# EXPECTED.err; a file that is not there expects nothing. What it printed is
# left in ACTUAL.txt and ACTUAL.err.
#
#   cmake -D "COMMAND=..." -D RESULT=... -D FOLDER=... -D EXPECTED=...
#         -D ACTUAL=... -P compare.cmake
#
# The parser's source changes and loggers differ: records are compared without
# their line and colour.
cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND ${COMMAND} WORKING_DIRECTORY ${FOLDER}
    RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE error)
string(ASCII 27 escape)
string(REGEX REPLACE "${escape}\\[[0-9]+m" "" error "${error}")
string(REGEX REPLACE "(QVGraphParser [^:]*):[0-9]+:" "\\1:LINE:" error "${error}")
string(REGEX REPLACE "\\([0-9]+\\): CHECK_UE" "(LINE): CHECK_UE" error "${error}")

# Complains where `text` is not what the file holds.
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
