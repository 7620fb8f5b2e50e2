# What every target of the project is compiled with.
add_library(surface_settings INTERFACE)
target_compile_features(surface_settings INTERFACE cxx_std_20)
target_compile_options(surface_settings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast)

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # A library with unique symbols is never unloaded.
    target_compile_options(surface_settings INTERFACE -fno-gnu-unique)
endif()

set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(SURFACE_SANITIZE)
    # float-cast-overflow is no part of "undefined": a page's numbers reach such casts, so it is named.
    set(sanitizers address,undefined,float-cast-overflow)
    target_compile_options(surface_settings INTERFACE
        -fsanitize=${sanitizers} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(surface_settings INTERFACE -fsanitize=${sanitizers})
endif()

if(SURFACE_SANITIZE_THREADS)
    target_compile_options(surface_settings INTERFACE -fsanitize=thread -fno-omit-frame-pointer)
    target_link_options(surface_settings INTERFACE -fsanitize=thread)
endif()

if(SURFACE_COVERAGE)
    target_compile_options(surface_settings INTERFACE -fprofile-instr-generate -fcoverage-mapping)
    target_link_options(surface_settings INTERFACE -fprofile-instr-generate)
endif()

# Pages come from strangers: what a fault in the code would let one write ends the program instead. Checks of buffers and
# stacks, and tables of addresses that are read-only once the library is loaded. Sanitizers have checks of their own.
set(SURFACE_HARDENED OFF)
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT WIN32
    AND NOT SURFACE_SANITIZE AND NOT SURFACE_SANITIZE_THREADS AND NOT SURFACE_FUZZ)
    set(SURFACE_HARDENED ON)
    target_compile_options(surface_settings INTERFACE
        -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3 -fstack-protector-strong -fstack-clash-protection)
    target_link_options(surface_settings INTERFACE -Wl,-z,relro,-z,now,-z,noexecstack)
endif()

if(SURFACE_FUZZ)
    # The library reports its coverage to libFuzzer.
    target_compile_options(surface_settings INTERFACE -fsanitize=fuzzer-no-link)
endif()
