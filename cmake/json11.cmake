# Finds json11, or fetches its source if no package is installed. Sets
# QVGRAPH_JSON11 to its target and QVGRAPH_JSON11_VERSION to its version.
#
# No version is requested, because Debian's package has no version file.
include(FetchContent)
FetchContent_Declare(json11
    GIT_REPOSITORY https://github.com/dropbox/json11.git
    GIT_TAG 2df9473fb3605980db55ecddf34392a2e832ad35 # 1.0.0
    FIND_PACKAGE_ARGS)
set(JSON11_BUILD_TESTS OFF)
FetchContent_MakeAvailable(json11)

# Prefer the static library: Debian 12 has no package with the shared one that a
# program's package could depend on.
if(TARGET json11_static)
    set(QVGRAPH_JSON11 json11_static)
else()
    set(QVGRAPH_JSON11 json11)
endif()

# Neither the header nor the CMake package contains the version. An installed
# json11 has it in its pkg-config file; the fetched one is 1.0.0.
set(QVGRAPH_JSON11_VERSION "1.0.0")
if(json11_FOUND)
    set(QVGRAPH_JSON11_VERSION "of an unknown version")
    set(pkg_config_file ${json11_DIR}/../../pkgconfig/json11.pc)
    if(EXISTS ${pkg_config_file})
        file(STRINGS ${pkg_config_file} version REGEX "^Version: ")
        string(REGEX REPLACE "^Version: " "" QVGRAPH_JSON11_VERSION "${version}")
    endif()
endif()
