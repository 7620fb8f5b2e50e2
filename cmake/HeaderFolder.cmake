# surface_header_folder(RESULT HEADER): the folder in which HEADER of another library is found, for a library that is headers
# only or is loaded at run time. Such headers serve every target, but where one cross-compiles, their folder would bring
# this machine's own headers along: a folder with a link to this one library's stands in for it.
function(surface_header_folder result header)
    string(MAKE_C_IDENTIFIER "SURFACE_FOLDER_OF_${header}" folder)
    find_path(${folder} ${header} PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
    mark_as_advanced(${folder})
    set(${result} ${${folder}} PARENT_SCOPE)
    if(CMAKE_CROSSCOMPILING)
        string(REGEX MATCH "^[^/]+" name ${header})
        set(links ${PROJECT_BINARY_DIR}/headers)
        file(MAKE_DIRECTORY ${links})
        file(CREATE_LINK ${${folder}}/${name} ${links}/${name} SYMBOLIC)
        set(${result} ${links} PARENT_SCOPE)
    endif()
endfunction()
