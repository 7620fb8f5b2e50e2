# The page tool as a Windows program, on stored pages: how its commands end, and what they say and leave.
#   cmake -DTOOL=surfacepage.exe -DEMULATOR=... -DPAGES=fuzz/corpus -DWORK=... -P PageToolOnWindows.cmake
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
file(COPY ${PAGES}/svg/shapes.svg ${PAGES}/emf/texts.emf DESTINATION ${WORK})

# expect(EXIT_CODE PATTERN ARGUMENT...): of the exit code and of all output.
function(expect code pattern)
    execute_process(COMMAND ${EMULATOR} ${TOOL} ${ARGN} WORKING_DIRECTORY ${WORK}
        RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
    if(NOT result EQUAL code OR NOT "${output}${errors}" MATCHES "${pattern}")
        message(SEND_ERROR "surfacepage ${ARGN}: ${result}, ${output}${errors}")
    endif()
endfunction()

function(expect_start file hex)
    file(READ ${WORK}/${file} start LIMIT 8 HEX)
    if(NOT start MATCHES "^${hex}")
        message(SEND_ERROR "${file} begins with ${start}")
    endif()
endfunction()

expect(0 "SVG" info shapes.svg)
expect(0 "drawRectangle" trace shapes.svg)
expect(0 "" play shapes.svg -o page.png)
expect_start(page.png 89504e470d0a1a0a)
expect(0 "" play shapes.svg -o page.png) # over the one that is there
expect(0 "" play shapes.svg -o page.emf)
expect_start(page.emf 01000000)
expect(0 "records" info page.emf)
expect(0 "" play page.emf -o again.png)
expect_start(again.png 89504e470d0a1a0a)
expect(0 "" play shapes.svg -o page.ps)
expect_start(page.ps 25215053)
expect(2 "resolution of the screen" play shapes.svg --dpi 150 -o large.png)
expect(2 "it is one of the pages" play shapes.svg -o SHAPES.SVG --force)
expect(2 "a stored page is there" play shapes.svg -o page.emf)
expect(2 "can't be read: No such file" info missing.svg)
file(GLOB left_over ${WORK}/*.tmp ${WORK}/.*.tmp)
if(left_over)
    message(SEND_ERROR "Left: ${left_over}")
endif()
