# Debian packages, built by "cpack" in the build directory: libqvgraph-dev has the
# libraries and headers, qvgraph the command. scripts/package builds, checks and
# tests them.
find_program(QVGRAPH_GZIP gzip)
if(NOT PROJECT_IS_TOP_LEVEL OR NOT QVGRAPH_INSTALL OR NOT QVGRAPH_BUILD_TOOLS OR BUILD_SHARED_LIBS
        OR NOT QVGRAPH_GZIP)
    return()
endif()

# Changelog and copyright, which Debian requires in every package.
set(notes ${PROJECT_SOURCE_DIR}/packaging/debian)
configure_file(${notes}/changelog.in changelog.Debian @ONLY)
execute_process(COMMAND ${QVGRAPH_GZIP} -9nkf changelog.Debian WORKING_DIRECTORY ${PROJECT_BINARY_DIR})
function(qvgraph_install_notes component package)
    install(FILES ${notes}/copyright ${PROJECT_BINARY_DIR}/changelog.Debian.gz ${ARGN}
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package}
        COMPONENT ${component} EXCLUDE_FROM_ALL)
endfunction()
qvgraph_install_notes(dev_notes libqvgraph-dev ${notes}/README.Debian)
qvgraph_install_notes(tools_notes qvgraph)
install(FILES ${notes}/libqvgraph-dev.overrides RENAME libqvgraph-dev
    DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides COMPONENT dev_notes EXCLUDE_FROM_ALL)
install(FILES ${notes}/qvgraph.overrides RENAME qvgraph
    DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides COMPONENT tools_notes EXCLUDE_FROM_ALL)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "The qvgraph authors <qvgraph@example.org>")
set(CPACK_COMPONENTS_ALL dev dev_notes tools tools_notes)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/package_staged.cmake)
set(CPACK_QVGRAPH_STRIP ${CMAKE_STRIP})
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# The first line of each description is its synopsis. By default, CPack puts the
# project's description before it.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME libqvgraph-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_RECOMMENDS "libjson11-1-dev, pkg-config")
set(CPACK_DEBIAN_DEV_DESCRIPTION "parser for task-graph configurations, development files
A configuration describes a stream-processing task graph in one JSON document.
The library loads it, answers the queries of a framework, fills option stores
and sets up task nodes.

This package contains static libraries and headers: the parser, the contracts
that it calls, and a host framework that implements them. README.Debian says
where to get json11, which programs that use the parser link.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME qvgraph)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_TOOLS_PACKAGE_RECOMMENDS graphviz)
set(CPACK_DEBIAN_TOOLS_DESCRIPTION "inspector, checker and drawing tool for task-graph configurations
A configuration describes a stream-processing task graph in one JSON document.
The command qvgraph reports mistakes with line and column before a device
aborts on them, shows how a framework interprets the configuration, and draws
the graph.

The package contains manual pages, completions for bash and zsh, and a JSON
Schema for editors.")

include(CPack)
cpack_add_component_group(dev)
cpack_add_component_group(tools)
cpack_add_component(dev GROUP dev)
cpack_add_component(dev_notes GROUP dev)
cpack_add_component(tools GROUP tools)
cpack_add_component(tools_notes GROUP tools)
