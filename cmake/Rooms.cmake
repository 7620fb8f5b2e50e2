# Where gdidevice.h is, and <windows.h> on systems that have none of their own.
set(SURFACE_WINDOWS_FOLDERS ${PROJECT_SOURCE_DIR}/platform/device)
if(NOT WIN32)
    list(APPEND SURFACE_WINDOWS_FOLDERS ${PROJECT_SOURCE_DIR}/platform/windows/include)
endif()

# The rooms of the library. Each is an object library that sees the public headers, its own folder and the rooms that it
# names, and no other: a file that includes a foreign room does not compile. The shared library is linked from all of
# them.
#
#   surface_room(NAME FILE... [SEES ROOM...])
#
# makes the target surface_NAME of the files in this folder. Headers are included by their plain names, of which there
# are no two alike.
function(surface_room name)
    cmake_parse_arguments(PARSE_ARGV 1 room "" "" "SEES")
    set(target surface_${name})
    add_library(${target} OBJECT ${room_UNPARSED_ARGUMENTS})
    set_property(TARGET ${target} PROPERTY SURFACE_FOLDER ${CMAKE_CURRENT_SOURCE_DIR})
    target_compile_definitions(${target} PRIVATE SURFACE_BUILDS_MODULE)
    target_include_directories(${target} PRIVATE
        ${PROJECT_SOURCE_DIR}/include
        ${SURFACE_WINDOWS_FOLDERS}
        ${CMAKE_CURRENT_SOURCE_DIR})
    foreach(seen IN LISTS room_SEES)
        target_include_directories(${target} PRIVATE $<TARGET_PROPERTY:surface_${seen},SURFACE_FOLDER>)
    endforeach()
    target_link_libraries(${target} PRIVATE surface_settings)
    set_property(GLOBAL APPEND PROPERTY SURFACE_ROOMS ${target})
    target_sources(surface PRIVATE $<TARGET_OBJECTS:${target}>)
endfunction()

# The objects of all rooms, for programs that link them once more.
function(surface_room_objects result)
    get_property(rooms GLOBAL PROPERTY SURFACE_ROOMS)
    list(TRANSFORM rooms REPLACE "(.+)" "$<TARGET_OBJECTS:\\1>")
    set(${result} ${rooms} PARENT_SCOPE)
endfunction()
