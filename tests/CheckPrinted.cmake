# Compares what a program prints with a committed file. Where the environment has RENEW, it updates the
# file instead, and appends what went wrong to the file that RENEW names.

separate_arguments(arguments UNIX_COMMAND "${ARGUMENTS}")
execute_process(
    COMMAND "${PROGRAM}" ${arguments}
    OUTPUT_VARIABLE printed
    ERROR_VARIABLE errors
    RESULT_VARIABLE status
    TIMEOUT 120)
if(NOT status EQUAL 0)
    string(REGEX REPLACE "(QStandardPaths: |This plugin does not support )[^\n]*\n" "" errors "${errors}") # no desktop
    string(PREPEND errors "${NAME} failed (${status}): ")
    string(STRIP "${errors}" errors)
endif()
if(DEFINED ENV{RENEW})
    if(printed AND status MATCHES "^[0-9]+$") # not the beginning alone
        file(WRITE "${FILE}" "${printed}")
    endif()
    if(NOT status EQUAL 0)
        file(APPEND "$ENV{RENEW}" "${errors}\n")
    endif()
    return()
endif()

file(WRITE "${NAME}.printed" "${printed}")
execute_process(
    COMMAND "${DIFF}" -u --label "expected" --label "printed" "${FILE}" "${NAME}.printed"
    OUTPUT_VARIABLE difference
    RESULT_VARIABLE differs)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "${errors}")
elseif(NOT differs EQUAL 0)
    message(NOTICE "${difference}") # other kinds of messages lose spaces
    message(FATAL_ERROR "${FILE} differs. If this is meant, update it with script/renew")
endif()
