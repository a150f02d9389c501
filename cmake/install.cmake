# qvgraph_install(TARGET...): installs libraries with their headers and exports
# them under the namespace qvgraph::.
# qvgraph_install_package(): what find_package(qvgraph CONFIG) reads.

if(QVGRAPH_INSTALL AND NOT json11_FOUND)
    message(STATUS "qvgraph: json11 is no installed package here, so there are no install rules")
    set(QVGRAPH_INSTALL OFF)
endif()
set(QVGRAPH_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/qvgraph)

function(qvgraph_install)
    if(QVGRAPH_INSTALL)
        install(TARGETS ${ARGV}
            EXPORT qvgraphTargets
            FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/qvgraph)
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
    install(EXPORT qvgraphTargets NAMESPACE qvgraph:: DESTINATION ${QVGRAPH_CMAKE_DIR})
    install(FILES
        ${PROJECT_BINARY_DIR}/qvgraphConfig.cmake ${PROJECT_BINARY_DIR}/qvgraphConfigVersion.cmake
        DESTINATION ${QVGRAPH_CMAKE_DIR})
endfunction()
