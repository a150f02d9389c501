# Targets for developers of the project:
#
#   format   formats the sources with clang-format   (scripts/bootstrap format)
#   docs     builds the reference of the public headers into
#            build/reference/html with Doxygen       (scripts/bootstrap docs)
if(NOT PROJECT_IS_TOP_LEVEL)
    return()
endif()

add_custom_target(format
    COMMAND sh -c "git ls-files '*.h' '*.cpp' | xargs clang-format -i"
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
    VERBATIM)

# docs/Doxyfile names the output directory and treats warnings as errors.
add_custom_target(docs
    COMMAND ${CMAKE_COMMAND} -E rm -rf build/reference
    COMMAND ${CMAKE_COMMAND} -E make_directory build/reference
    COMMAND doxygen docs/Doxyfile
    COMMAND ${CMAKE_COMMAND} -E echo "The reference is build/reference/html/index.html."
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
    VERBATIM)
