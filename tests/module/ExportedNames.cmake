# Holds what the library exports against the list beside this file: the classes, functions and objects of the public headers.
#   cmake -DNM=... -DLIBRARY=... -P ExportedNames.cmake
# A name that is meant to come or to go is added to the list or taken out of it.
execute_process(COMMAND ${NM} --dynamic --defined-only --demangle --format=just-symbols ${LIBRARY}
    OUTPUT_VARIABLE exported COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" exported "${exported}")
list(REMOVE_DUPLICATES exported) # a constructor has two symbols of one name
file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/exported-names.txt listed)

set(added ${exported})
list(REMOVE_ITEM added ${listed})
set(lost ${listed})
list(REMOVE_ITEM lost ${exported})
list(JOIN added "\n  + " added)
list(JOIN lost "\n  - " lost)
if(added OR lost)
    message(FATAL_ERROR "Exported and not in the list:\n  + ${added}\nIn the list and not exported:\n  - ${lost}")
endif()
