# Whether the library's file says what its settings promise: addresses read-only once it is loaded, no stack that runs, and
# checks of stacks and buffers in its code.
execute_process(COMMAND ${READELF} --wide --segments --dynamic --dyn-syms ${LIBRARY}
    OUTPUT_VARIABLE said COMMAND_ERROR_IS_FATAL ANY)
foreach(wanted "GNU_RELRO" "BIND_NOW|Flags: NOW" "GNU_STACK[^\n]* RW " "__stack_chk_fail" "__(memcpy|memmove|memset|snprintf)_chk")
    if(NOT said MATCHES "${wanted}")
        message(SEND_ERROR "${LIBRARY} has no ${wanted}")
    endif()
endforeach()
