# The packages of `cpack -G DEB` in a build folder: libsurface1, libsurface-dev, surfacepage.
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL runtime development tool)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})

set(about "A page is drawn once through one interface, CSurface, and kept as SVG text or
as an enhanced metafile; players replay it on paper, in PDF, on pixels and on
other pages, stamp its page count when the total is known, and search its text.")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libsurface${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
# Loaded where they are there: without the library images are PNG and JPEG only, without the fonts text is measured by
# others.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS "libfreeimage3, fonts-liberation")
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "drawing surfaces for reports and printing, and stored pages\n${about}")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libsurface-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS runtime)
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION
    "headers of the library of drawing surfaces\n${about}\n.\nWhat a program needs that is compiled with it.")

set(CPACK_DEBIAN_TOOL_PACKAGE_NAME surfacepage)
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOL_PACKAGE_SHLIBDEPS ON)
set(CPACK_COMPONENT_TOOL_DEPENDS runtime)
set(CPACK_DEBIAN_TOOL_DESCRIPTION
    "shows, prints, stamps and searches stored report pages\n${about}\n.\nThe tool for the shell.")

# Where Debian's packages have them: who may do what, what changed, the manual page. -n: no time stamp.
find_program(GZIP gzip)
set(packaging ${PROJECT_BINARY_DIR}/packaging)
file(MAKE_DIRECTORY ${packaging})
function(compressed source target)
    if(GZIP)
        execute_process(COMMAND ${GZIP} -9nc ${source} OUTPUT_FILE ${packaging}/${target} COMMAND_ERROR_IS_FATAL ANY)
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${source})
    endif()
endfunction()
compressed(${PROJECT_SOURCE_DIR}/CHANGELOG.md changelog.gz)
compressed(${PROJECT_SOURCE_DIR}/packaging/changelog.Debian changelog.Debian.gz)
compressed(${PROJECT_SOURCE_DIR}/man/surfacepage.1 surfacepage.1.gz)
foreach(component RUNTIME DEVELOPMENT TOOL)
    string(TOLOWER ${component} name)
    set(documents ${CMAKE_INSTALL_DATAROOTDIR}/doc/${CPACK_DEBIAN_${component}_PACKAGE_NAME})
    install(FILES ${PROJECT_SOURCE_DIR}/packaging/copyright ${packaging}/changelog.gz ${packaging}/changelog.Debian.gz
        DESTINATION ${documents} COMPONENT ${name} OPTIONAL)
endforeach()
if(SURFACE_TOOLS)
    install(FILES ${packaging}/surfacepage.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tool OPTIONAL)
endif()

# What dependent packages ask for: by symbols, with the version that first had them, and by the library's name. The system's
# list of libraries is brought up to date by a trigger.
file(WRITE ${packaging}/shlibs
    "libsurface ${PROJECT_VERSION_MAJOR} ${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} (>= ${PROJECT_VERSION})\n")
file(WRITE ${packaging}/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${packaging}/shlibs ${packaging}/triggers)
find_program(DPKG_GENSYMBOLS dpkg-gensymbols)
if(DPKG_GENSYMBOLS AND NOT SURFACE_SANITIZE AND NOT SURFACE_SANITIZE_THREADS)
    add_custom_command(TARGET surface POST_BUILD
        COMMAND ${DPKG_GENSYMBOLS} -q -p${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} -v${PROJECT_VERSION}
            -e$<TARGET_FILE:surface> -O${packaging}/symbols
        VERBATIM)
    list(APPEND CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${packaging}/symbols)
endif()
