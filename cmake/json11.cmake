# json11, as the target in QVGRAPH_JSON11.
#
# An installed package comes first; without one the upstream source is fetched,
# where a network allows it. Debian's package has no version file, so none is
# asked for.
include(FetchContent)
FetchContent_Declare(json11
    GIT_REPOSITORY https://github.com/dropbox/json11.git
    GIT_TAG 2df9473fb3605980db55ecddf34392a2e832ad35 # 1.0.0
    FIND_PACKAGE_ARGS)
set(JSON11_BUILD_TESTS OFF)
FetchContent_MakeAvailable(json11)

# Debian 12 has no runtime package that a program could depend on: take the
# static library where there is a choice.
if(TARGET json11_static)
    set(QVGRAPH_JSON11 json11_static)
else()
    set(QVGRAPH_JSON11 json11)
endif()

# Its version, which neither its header nor its CMake package tells: what is
# fetched is as said above, and an installed one has a file of pkg-config's.
set(QVGRAPH_JSON11_VERSION "1.0.0")
if(json11_FOUND)
    set(QVGRAPH_JSON11_VERSION "of an unknown version")
    set(described_by ${json11_DIR}/../../pkgconfig/json11.pc)
    if(EXISTS ${described_by})
        file(STRINGS ${described_by} version REGEX "^Version: ")
        string(REGEX REPLACE "^Version: " "" QVGRAPH_JSON11_VERSION "${version}")
    endif()
endif()
