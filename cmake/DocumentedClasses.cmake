# Whether the documentation has classes, and each of them a description and a task.
#   cmake -DXML=FOLDER -P DocumentedClasses.cmake
file(GLOB groups ${XML}/group__*.xml)
set(grouped "")
foreach(group IN LISTS groups)
    file(READ ${group} text)
    string(APPEND grouped "${text}")
endforeach()

file(READ ${XML}/index.xml index)
string(REGEX MATCHALL "<compound refid=\"[^\"]+\" kind=\"(class|struct)\">" classes "${index}")
if(NOT classes OR "${grouped}" MATCHES "<compoundname>no_task<")
    message(FATAL_ERROR "There are no classes, or a header has no task in docComments.awk")
endif()
set(bare "")
foreach(class IN LISTS classes)
    string(REGEX REPLACE ".*refid=\"([^\"]+)\".*" "\\1" id "${class}")
    file(READ ${XML}/${id}.xml text)
    # Those of members are further to the right.
    if(NOT text MATCHES "<compounddef[^>]+prot=\"private\"" AND
        text MATCHES "\n    <briefdescription>[ \n]*</briefdescription>[ \n]*<detaileddescription>[ \n]*</detaileddescription>")
        list(APPEND bare ${id})
    endif()
endforeach()
if(bare)
    list(JOIN bare "\n  " bare)
    message(FATAL_ERROR "These classes have no description:\n  ${bare}")
endif()
