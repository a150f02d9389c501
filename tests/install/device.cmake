# Builds what a device needs, the parser and the contracts, in C++11, with json11
# as the only library: with the suite's compiler, and with Clang.
include(${CMAKE_CURRENT_LIST_DIR}/run.cmake)

function(build_for_device name)
    run(${CMAKE_COMMAND} -S ${SOURCE} -B ${WORK}/${name} ${ARGUMENTS} ${ARGN}
        -D QVGRAPH_BUILD_HOST=OFF -D QVGRAPH_BUILD_TOOLS=OFF -D QVGRAPH_BUILD_TESTS=OFF
        -D QVGRAPH_WERROR=ON -D CMAKE_EXPORT_COMPILE_COMMANDS=ON
        -D CMAKE_DISABLE_FIND_PACKAGE_CLI11=ON -D CMAKE_DISABLE_FIND_PACKAGE_nlohmann_json=ON
        -D CMAKE_DISABLE_FIND_PACKAGE_GTest=ON -D QVGRAPH_UTF8CPP_DIR=/no/such/folder)
    run(${CMAKE_COMMAND} --build ${WORK}/${name})
    run(${CMAKE_COMMAND} --build ${WORK}/${name} --target all_verify_interface_header_sets)
    file(READ ${WORK}/${name}/compile_commands.json commands)
    string(REGEX MATCHALL "-std=[^ \"]*" standards "${commands}")
    list(REMOVE_DUPLICATES standards)
    expect("${standards}" "-std=c++11")
endfunction()

build_for_device(suite)
find_program(clang clang++)
if(clang AND NOT EMULATOR)
    # The suite's flags are intended for its own compiler.
    build_for_device(clang -D CMAKE_CXX_COMPILER=${clang} -D CMAKE_CXX_FLAGS=)
else()
    message(STATUS "There is no Clang for this machine: only GCC is tested")
endif()
