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
