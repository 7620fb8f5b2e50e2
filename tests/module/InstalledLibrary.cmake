# Installs the library into a fresh folder, or unpacks its package there, and builds and runs a program outside the tree
# with it, found by CMake and by pkg-config.
#   cmake -DBUILD=... -DWORK=... -DVERSION=1.0 -DCXX=... -DGENERATOR=... -DPACKAGE=DEB|ZIP|OFF
#         [-DTOOLCHAIN=... -DEMULATOR=...] -P InstalledLibrary.cmake
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})

function(run)
    execute_process(COMMAND ${ARGV} COMMAND_ERROR_IS_FATAL ANY OUTPUT_VARIABLE output)
    set(output "${output}" PARENT_SCOPE)
endfunction()

if(PACKAGE STREQUAL "ZIP")
    run(cpack -G ZIP -B ${WORK} --config ${BUILD}/CPackConfig.cmake)
    file(GLOB package ${WORK}/*.zip)
    file(ARCHIVE_EXTRACT INPUT ${package} DESTINATION ${WORK}/unpacked)
    file(GLOB prefix ${WORK}/unpacked/*)
elseif(PACKAGE STREQUAL "DEB")
    run(cpack -G DEB -B ${WORK} --config ${BUILD}/CPackConfig.cmake)
    file(GLOB package ${WORK}/*.deb)
    run(dpkg-deb -x ${package} ${WORK})
    run(dpkg-deb -f ${package} Depends)
    foreach(needed libc6 libcairo2 libfontconfig1 libfreetype6 libstdc++6)
        string(FIND "${output}" "${needed}" place)
        if(place EQUAL -1)
            message(FATAL_ERROR "The package does not ask for ${needed}: ${output}")
        endif()
    endforeach()
    set(prefix ${WORK}/usr)
else()
    set(prefix ${WORK}/prefix)
    run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix})
endif()
file(GLOB_RECURSE library ${prefix}/libsurface.so ${prefix}/libsurface.dll.a)
cmake_path(GET library PARENT_PATH libraries)

function(expect_version program)
    run(${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${libraries} WINEPATH=${prefix}/bin ${EMULATOR} ${program})
    if(NOT output MATCHES "^${VERSION}\r?\n$")
        message(FATAL_ERROR "${program} reports ${output}")
    endif()
endfunction()

set(outside ${CMAKE_CURRENT_LIST_DIR}/outside)
set(way -DCMAKE_PREFIX_PATH=${prefix})
if(TOOLCHAIN) # which looks for packages among those of its target only
    set(way -Dsurface_DIR=${libraries}/cmake/surface -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN})
endif()
run(${CMAKE_COMMAND} -S ${outside} -B ${WORK}/found -G ${GENERATOR}
    ${way} -DCMAKE_CXX_COMPILER=${CXX})
run(${CMAKE_COMMAND} --build ${WORK}/found)
file(GLOB program ${WORK}/found/outside ${WORK}/found/outside.exe)
expect_version(${program})

set(ENV{PKG_CONFIG_PATH} ${libraries}/pkgconfig)
run(pkg-config --cflags --libs surface)
separate_arguments(flags UNIX_COMMAND "${output}")
run(${CXX} -std=c++20 -Wall -Wextra -Werror ${outside}/main.cpp -o ${WORK}/with-pkg-config.exe ${flags})
expect_version(${WORK}/with-pkg-config.exe)
