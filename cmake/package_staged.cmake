# CPack runs this script on the files of a package. As Debian requires, it
# compresses manual pages and strips debugging information from static libraries.
file(GLOB_RECURSE pages ${CPACK_TEMPORARY_DIRECTORY}/qvgraph*.[1-9])
foreach(page ${pages})
    execute_process(COMMAND gzip -9n ${page} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
file(GLOB_RECURSE libraries ${CPACK_TEMPORARY_DIRECTORY}/*.a)
foreach(library ${libraries})
    execute_process(COMMAND ${CPACK_QVGRAPH_STRIP} --strip-debug --enable-deterministic-archives ${library}
        COMMAND_ERROR_IS_FATAL ANY)
endforeach()
