# What `cmake --install` puts where, and the package that `cpack -G DEB` makes of it, or `cpack -G ZIP` for Windows: the library, its headers in a
# folder of their own, gdidevice.h in another beside it, with <windows.h> where the system has none, and the descriptions
# for CMake and pkg-config.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(header_folder ${CMAKE_INSTALL_INCLUDEDIR}/surface)
set(windows_folder ${CMAKE_INSTALL_INCLUDEDIR}/surface-windows)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/surface)

# A <windows.h> of the consumer's own comes before ours.
target_compile_features(surface INTERFACE cxx_std_20)
target_include_directories(surface INTERFACE $<INSTALL_INTERFACE:${header_folder}>)
target_compile_options(surface INTERFACE $<INSTALL_INTERFACE:-idirafter$<INSTALL_PREFIX>/${windows_folder}>)
install(TARGETS surface EXPORT surface)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/ DESTINATION ${header_folder})
foreach(folder IN LISTS SURFACE_WINDOWS_FOLDERS)
    install(DIRECTORY ${folder}/ DESTINATION ${windows_folder} FILES_MATCHING PATTERN "*.h")
endforeach()

install(EXPORT surface FILE surfaceTargets.cmake NAMESPACE surface:: DESTINATION ${package_folder})
file(WRITE ${PROJECT_BINARY_DIR}/surfaceConfig.cmake
    "include(\${CMAKE_CURRENT_LIST_DIR}/surfaceTargets.cmake)\n")
write_basic_package_version_file(${PROJECT_BINARY_DIR}/surfaceConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/surfaceConfig.cmake ${PROJECT_BINARY_DIR}/surfaceConfigVersion.cmake
    DESTINATION ${package_folder})

# The prefix follows from where surface.pc is, so that an installation may be moved.
file(RELATIVE_PATH prefix_from_pkgconfig
    ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(${CMAKE_CURRENT_LIST_DIR}/surface.pc.in ${PROJECT_BINARY_DIR}/surface.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/surface.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

if(WIN32)
    # What the compiler's runtime libraries are licensed under, as Debian tells it.
    install(FILES ${surface_runtime} DESTINATION ${CMAKE_INSTALL_BINDIR})
    install(FILES /usr/share/doc/gcc-mingw-w64-base/copyright
        DESTINATION ${CMAKE_INSTALL_DOCDIR} RENAME licence-libgcc-libstdc++.txt)
    install(FILES /usr/share/doc/mingw-w64-common/copyright
        DESTINATION ${CMAKE_INSTALL_DOCDIR} RENAME licence-libwinpthread.txt)
    set(CPACK_GENERATOR ZIP)
    math(EXPR bits "8 * ${CMAKE_SIZEOF_VOID_P}")
    set(CPACK_SYSTEM_NAME windows${bits})
endif()

set(CPACK_PACKAGE_NAME libsurface)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "The surface developers <surface@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "draws report pages, stores, replays, stamps and searches them")
if(NOT WIN32)
    set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
endif()
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
# Loaded where they are there: without the library images are PNG and JPEG only, without the fonts text is measured by
# others.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "libfreeimage3, fonts-liberation")
include(CPack)
