# Compares what the documents inside the library say with the committed outline of a product. With
# RENEW, writes the outline instead.

execute_process(
    COMMAND "${WORKBENCH}" outline "${PRODUCT}"
    OUTPUT_VARIABLE outline
    COMMAND_ERROR_IS_FATAL ANY)
if(RENEW)
    file(WRITE "${OUTLINE}" "${outline}")
    return()
endif()

file(WRITE "${PRODUCT}.outline" "${outline}")
execute_process(
    COMMAND "${DIFF}" -u --label "expected of ${PRODUCT}" --label "in the library" "${OUTLINE}" "${PRODUCT}.outline"
    OUTPUT_VARIABLE difference
    RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(NOTICE "${difference}") # as it is: other messages lose their blanks
    message(FATAL_ERROR "The documents of ${PRODUCT} say something else, which hosts and users will see. "
        "If this is meant: cmake --build ... --target renew-outlines")
endif()
