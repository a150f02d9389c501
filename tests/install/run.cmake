# Shared by the tests of this directory. Each one runs with
#
#   cmake -D SOURCE=... -D BUILD=... -D WORK=... -D "ARGUMENTS=..."
#         -D "EMULATOR=..." -D NM=... -D READELF=... -P TEST.cmake
#
# ARGUMENTS are passed to CMake when it configures a project.
cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE ${WORK})

# run(COMMAND...): stores the standard output in `printed`.
function(run)
    execute_process(COMMAND ${ARGV} RESULT_VARIABLE result OUTPUT_VARIABLE printed ERROR_VARIABLE complaint)
    if(NOT result EQUAL 0)
        list(JOIN ARGV " " command)
        message(FATAL_ERROR "${command}\nexited with ${result}:\n${printed}${complaint}")
    endif()
    set(printed "${printed}" PARENT_SCOPE)
endfunction()

# expect(ACTUAL EXPECTED)
function(expect actual expected)
    if(NOT actual STREQUAL expected)
        message(SEND_ERROR "found\n${actual}\nexpected\n${expected}")
    endif()
endfunction()

# build_consumer(NAME ARGUMENT...): configures, builds and runs the consumer.
function(build_consumer name)
    run(${CMAKE_COMMAND} -S ${SOURCE}/tests/install/consumer -B ${WORK}/${name} ${ARGUMENTS} ${ARGN})
    run(${CMAKE_COMMAND} --build ${WORK}/${name})
    expect_consumer(${WORK}/${name}/consumer)
endfunction()

function(expect_consumer program)
    run(${EMULATOR} ${program})
    expect("${printed}"
        "Camera gives nv12 at 25\na Camera: yes\nstream 0: frames\n")
endfunction()

# Returns the value of a variable in ARGUMENTS.
function(argument name result)
    set(value "")
    foreach(each IN LISTS ARGUMENTS)
        if(each MATCHES "^${name}=(.*)$")
            set(value ${CMAKE_MATCH_1})
        endif()
    endforeach()
    set(${result} "${value}" PARENT_SCOPE)
endfunction()

# build_by_pkg_config(NAME PREFIX): builds and runs the consumer with the flags
# that pkg-config reports for the package below PREFIX.
function(build_by_pkg_config name prefix)
    file(GLOB_RECURSE files ${prefix}/*/qvgraph-parser.pc)
    cmake_path(GET files PARENT_PATH folder)
    run(${CMAKE_COMMAND} -E env PKG_CONFIG_PATH=${folder}
        pkg-config --cflags --libs qvgraph-parser qvgraph-host)
    separate_arguments(flags UNIX_COMMAND "${printed}")
    argument(CMAKE_CXX_COMPILER compiler)
    argument(CMAKE_CXX_FLAGS own_flags)
    separate_arguments(own_flags UNIX_COMMAND "${own_flags}")
    cmake_path(GET folder PARENT_PATH libraries)
    file(MAKE_DIRECTORY ${WORK}/${name})
    run(${compiler} ${own_flags} -std=c++17 ${SOURCE}/tests/install/consumer/main.cpp
        -o ${WORK}/${name}/consumer ${flags} -Wl,-rpath,${libraries})
    expect_consumer(${WORK}/${name}/consumer)
endfunction()
