# The target `docs`: pages of the public headers, in docs/html of the build folder. A warning is an error, and so is a class without a description or
# without a task.
find_program(DOXYGEN doxygen)
mark_as_advanced(DOXYGEN)
if(DOXYGEN)
    configure_file(${CMAKE_CURRENT_LIST_DIR}/Doxyfile.in ${PROJECT_BINARY_DIR}/Doxyfile @ONLY)
    file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/docs)
    add_custom_target(docs COMMAND ${DOXYGEN} -q ${PROJECT_BINARY_DIR}/Doxyfile
        COMMAND ${CMAKE_COMMAND} -DXML=${PROJECT_BINARY_DIR}/docs/xml -P ${CMAKE_CURRENT_LIST_DIR}/DocumentedClasses.cmake
        COMMENT "Making the pages of the public headers" VERBATIM)
endif()
