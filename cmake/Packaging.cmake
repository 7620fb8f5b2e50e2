# What `cmake --install` puts where, and the packages that `cpack -G DEB` makes of it (DebianPackages.cmake), or the one of
# `cpack -G ZIP` for Windows: the library, its headers in a folder of their own, gdidevice.h in another beside it, with
# <windows.h> where the system has none, and the descriptions for CMake and pkg-config.
#
# Components: `runtime`, the library; `development`, what one needs to compile with it; `tool`, surfacepage.
if(EXISTS /etc/debian_version AND CMAKE_LIBRARY_ARCHITECTURE AND NOT CMAKE_CROSSCOMPILING)
    set(CMAKE_INSTALL_LIBDIR lib/${CMAKE_LIBRARY_ARCHITECTURE} CACHE PATH "Folder of libraries") # below any prefix
endif()
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(header_folder ${CMAKE_INSTALL_INCLUDEDIR}/surface)
set(windows_folder ${CMAKE_INSTALL_INCLUDEDIR}/surface-windows)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/surface)

# A <windows.h> of the consumer's own comes before ours.
target_compile_features(surface INTERFACE cxx_std_20)
target_include_directories(surface INTERFACE $<INSTALL_INTERFACE:${header_folder}>)
target_compile_options(surface INTERFACE $<INSTALL_INTERFACE:-idirafter$<INSTALL_PREFIX>/${windows_folder}>)
install(TARGETS surface EXPORT surface
    RUNTIME COMPONENT runtime
    LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE COMPONENT development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/ DESTINATION ${header_folder} COMPONENT development)
foreach(folder IN LISTS SURFACE_WINDOWS_FOLDERS)
    install(DIRECTORY ${folder}/ DESTINATION ${windows_folder} COMPONENT development FILES_MATCHING PATTERN "*.h")
endforeach()

install(EXPORT surface FILE surfaceTargets.cmake NAMESPACE surface:: DESTINATION ${package_folder} COMPONENT development)
file(WRITE ${PROJECT_BINARY_DIR}/surfaceConfig.cmake
    "include(\${CMAKE_CURRENT_LIST_DIR}/surfaceTargets.cmake)\n")
write_basic_package_version_file(${PROJECT_BINARY_DIR}/surfaceConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/surfaceConfig.cmake ${PROJECT_BINARY_DIR}/surfaceConfigVersion.cmake
    DESTINATION ${package_folder} COMPONENT development)

# The prefix follows from where surface.pc is, so that an installation may be moved.
file(RELATIVE_PATH prefix_from_pkgconfig
    ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(${CMAKE_CURRENT_LIST_DIR}/surface.pc.in ${PROJECT_BINARY_DIR}/surface.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/surface.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT development)

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
set(CPACK_STRIP_FILES ON)
if(NOT WIN32)
    include(${CMAKE_CURRENT_LIST_DIR}/DebianPackages.cmake)
endif()
include(CPack)
