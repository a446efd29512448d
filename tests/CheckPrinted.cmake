# Compares what a program prints with the committed file. With RENEW, updates the file instead.

separate_arguments(arguments UNIX_COMMAND "${ARGUMENTS}")
execute_process(
    COMMAND "${PROGRAM}" ${arguments}
    OUTPUT_VARIABLE printed
    TIMEOUT 120
    COMMAND_ERROR_IS_FATAL ANY)
if(RENEW)
    file(WRITE "${FILE}" "${printed}")
    return()
endif()

file(WRITE "${NAME}.printed" "${printed}")
execute_process(
    COMMAND "${DIFF}" -u --label "expected" --label "printed" "${FILE}" "${NAME}.printed"
    OUTPUT_VARIABLE difference
    RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(NOTICE "${difference}") # other kinds of messages lose spaces
    message(FATAL_ERROR "${FILE} differs. If this is meant, update it with script/renew")
endif()
