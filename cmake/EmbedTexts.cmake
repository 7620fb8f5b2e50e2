# Writes a C++ source that holds the texts of some files as members of a class.
#   cmake -DCLASS=... -DHEADER=... -DOUTPUT=... -DFILES=one;two -P EmbedTexts.cmake
# The member `one` of CLASS, which HEADER declares, becomes the bytes of one.ps after the comment lines at its
# head; those are for the reader of the file.
set(source "#include \"${HEADER}\"\n")
foreach(file IN LISTS FILES)
    get_filename_component(name "${file}" NAME_WE)
    file(READ "${file}" text)
    while("${text}" MATCHES "^%[^\n]*\n")
        string(LENGTH "${CMAKE_MATCH_0}" comment)
        string(SUBSTRING "${text}" ${comment} -1 text)
    endwhile()
    string(APPEND source "\nconst std::string_view ${CLASS}::${name} = R\"ps(${text})ps\";\n")
endforeach()
file(WRITE "${OUTPUT}" "${source}")
