# The compiler's runtime libraries are shared, so that a KrnException crosses from the library to its caller: both then know
# one another's types. They go beside the programs, and into the package with their licences.
set(surface_runtime)
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    set(unwinding libgcc_s_seh-1.dll)
else()
    set(unwinding libgcc_s_dw2-1.dll)
endif()
foreach(library ${unwinding} libstdc++-6.dll libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library}
        OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    list(APPEND surface_runtime ${file})
endforeach()
file(COPY ${surface_runtime} DESTINATION ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
