# Builds and installs shared libraries, and checks the symbols that they export.
include(${CMAKE_CURRENT_LIST_DIR}/run.cmake)

run(${CMAKE_COMMAND} -S ${SOURCE} -B ${WORK}/build ${ARGUMENTS} -D BUILD_SHARED_LIBS=ON
    -D QVGRAPH_BUILD_TOOLS=OFF -D QVGRAPH_BUILD_TESTS=OFF
    -D CMAKE_INSTALL_PREFIX=${WORK}/prefix -D CMAKE_INSTALL_LIBDIR=lib)
run(${CMAKE_COMMAND} --build ${WORK}/build)
run(${CMAKE_COMMAND} --install ${WORK}/build)
set(parser ${WORK}/prefix/lib/libqvgraph_parser.so)
set(host ${WORK}/prefix/lib/libqvgraph_host.so)

run(${READELF} -d ${parser} ${host})
string(REGEX MATCHALL "soname: \\[[^]]*\\]" names "${printed}")
expect("${names}" "soname: [libqvgraph_parser.so.0.2];soname: [libqvgraph_host.so.0.2]")

# Returns the demangled names of a library's symbols of the given kinds, without
# arguments.
function(symbols library kinds result)
    run(${NM} -DC ${library})
    string(REGEX MATCHALL " ${kinds} [^(\n@]*" found "${printed}")
    list(TRANSFORM found REPLACE " ${kinds} " "")
    list(REMOVE_DUPLICATES found)
    list(SORT found)
    set(${result} "${found}" PARENT_SCOPE)
endfunction()

# The parser leaves the framework's functions undefined, and defines only itself
# and the contracts.
set(contract "node_proxy_node_create;node_proxy_parse_stub_uid;qv_err;qv_log;qv_memset;util_snprintf;util_strcasecmp;util_to_string[abi:cxx11]")
symbols(${parser} U found)
list(FILTER found INCLUDE REGEX "^(node_proxy|qv|util)_")
expect("${found}" "${contract}")
symbols(${parser} T found)
list(FILTER found EXCLUDE REGEX "^QVGraphParser::")
expect("${found}" "")
symbols(${parser} [VWu] found)
list(FILTER found EXCLUDE REGEX "^((typeinfo name|typeinfo|vtable) for )?(QvMetaData|QVInputStreamManager|QVOutputStreamManager|QVTaskGraphConfig|QVTaskNodeBase)")
expect("${found}" "")

# The host framework defines all of them.
symbols(${host} T found)
list(FILTER found INCLUDE REGEX "^(node_proxy|qv_err|qv_log|qv_memset|util)_?")
list(FILTER found EXCLUDE REGEX "^qv_log_")
expect("${found}" "${contract}")
symbols(${host} [TVWu] found)
list(FILTER found EXCLUDE REGEX "^((typeinfo name|typeinfo|vtable) for )?(QV|Qv|qv_|node_proxy_|util_)")
expect("${found}" "")

build_consumer(package -D HOW=package -D CMAKE_PREFIX_PATH=${WORK}/prefix)
if(NOT EMULATOR)
    build_by_pkg_config(pkg-config ${WORK}/prefix)
endif()
