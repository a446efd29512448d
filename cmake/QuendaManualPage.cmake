# quenda_manual_page(PROGRAM COMPONENT PURPOSE [EXCLUDE_FROM_ALL]) makes the manual page of a program from
# its --help, and installs it with the program.
function(quenda_manual_page program component purpose)
    find_program(HELP2MAN help2man)
    if(NOT HELP2MAN OR CMAKE_CROSSCOMPILING OR QUENDAHELP_SANITIZE)
        message(STATUS "Manual page of ${program} left out: it needs help2man and a program that runs here")
        return()
    endif()
    set(page "${CMAKE_CURRENT_BINARY_DIR}/${program}.1")
    # help2man does not quote the name of the program.
    add_custom_command(OUTPUT "${page}"
        COMMAND ${HELP2MAN} --no-info "--name=${purpose}" "--output=${page}" ./${program}
        WORKING_DIRECTORY "$<TARGET_FILE_DIR:${program}>"
        DEPENDS ${program}
        COMMENT "Manual page of ${program}"
        VERBATIM)
    add_custom_target(${program}-manual ALL DEPENDS "${page}")
    install(FILES "${page}" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT ${component} ${ARGN})
endfunction()
