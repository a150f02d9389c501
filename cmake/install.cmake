# Install rules, in three components: "dev", libraries, headers, and the files for
# CMake and pkg-config; "runtime", shared libraries; "tools", the command with its
# schema, manual and completions.
#
# qvgraph_install(TARGET SYMBOLS): installs a library with its headers and exports
# it in the namespace qvgraph::. The name of a shared library contains the
# version; SYMBOLS is a linker version script with its exported symbols.
# qvgraph_install_pkg_config(NAME DESCRIPTION REQUIRES LIBS): installs NAME.pc.
# qvgraph_install_package(): installs the files that find_package(qvgraph CONFIG)
# reads, and the component "tools" except the command.

if(QVGRAPH_INSTALL AND NOT json11_FOUND)
    message(STATUS "qvgraph: no install rules, because json11 is not an installed package")
    set(QVGRAPH_INSTALL OFF)
endif()
set(QVGRAPH_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/qvgraph)
set(QVGRAPH_PKG_CONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

set(QVGRAPH_ZSH_DIR ${CMAKE_INSTALL_DATADIR}/zsh/site-functions CACHE STRING
    "Directory of the zsh completions; share/zsh/vendor-completions in Debian packages")

# Below 1.0, a minor version may change the binary interface.
set(QVGRAPH_SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})

function(qvgraph_install target)
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "SHARED_LIBRARY")
        set(symbols ${CMAKE_CURRENT_SOURCE_DIR}/${ARGV1})
        set_target_properties(${target} PROPERTIES
            VERSION ${PROJECT_VERSION}
            SOVERSION ${QVGRAPH_SOVERSION}
            LINK_DEPENDS ${symbols})
        target_link_options(${target} PRIVATE LINKER:--version-script=${symbols})
    endif()
    if(QVGRAPH_INSTALL)
        install(TARGETS ${target}
            EXPORT qvgraphTargets
            LIBRARY COMPONENT runtime NAMELINK_COMPONENT dev
            ARCHIVE COMPONENT dev
            FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/qvgraph COMPONENT dev)
    endif()
endfunction()

function(qvgraph_install_pkg_config NAME DESCRIPTION REQUIRES LIBS)
    if(QVGRAPH_INSTALL)
        # Relative to the .pc file, so that the installation can be moved.
        file(RELATIVE_PATH PREFIX
            ${CMAKE_INSTALL_PREFIX}/${QVGRAPH_PKG_CONFIG_DIR} ${CMAKE_INSTALL_PREFIX})
        string(REGEX REPLACE "/$" "" PREFIX ${PREFIX})
        configure_file(${PROJECT_SOURCE_DIR}/cmake/qvgraph.pc.in ${NAME}.pc @ONLY)
        install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${NAME}.pc
            DESTINATION ${QVGRAPH_PKG_CONFIG_DIR} COMPONENT dev)
    endif()
endfunction()

function(qvgraph_install_package)
    if(NOT QVGRAPH_INSTALL)
        return()
    endif()
    include(CMakePackageConfigHelpers)
    configure_package_config_file(cmake/qvgraphConfig.cmake.in qvgraphConfig.cmake
        INSTALL_DESTINATION ${QVGRAPH_CMAKE_DIR})
    write_basic_package_version_file(qvgraphConfigVersion.cmake COMPATIBILITY SameMinorVersion)
    install(EXPORT qvgraphTargets NAMESPACE qvgraph:: DESTINATION ${QVGRAPH_CMAKE_DIR} COMPONENT dev)
    install(FILES
        ${PROJECT_BINARY_DIR}/qvgraphConfig.cmake ${PROJECT_BINARY_DIR}/qvgraphConfigVersion.cmake
        DESTINATION ${QVGRAPH_CMAKE_DIR} COMPONENT dev)
    if(QVGRAPH_BUILD_TOOLS)
        install(FILES schema/graph.schema.json
            DESTINATION ${CMAKE_INSTALL_DATADIR}/qvgraph COMPONENT tools)
        install(FILES completions/qvgraph.bash RENAME qvgraph
            DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT tools)
        install(FILES completions/_qvgraph
            DESTINATION ${QVGRAPH_ZSH_DIR} COMPONENT tools)
        install(FILES docs/man/qvgraph.1
            DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tools)
        install(FILES docs/man/qvgraph-config.5
            DESTINATION ${CMAKE_INSTALL_MANDIR}/man5 COMPONENT tools)
    endif()
endfunction()
