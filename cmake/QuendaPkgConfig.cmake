# Where the pkg-config files find the headers: relative to themselves, so that an installation can be
# moved, or as the packager says who names a folder of his own. The library is beside them always.
# pkg-config itself escapes the blanks of ${pcfiledir}, but not those of a folder that a file names.
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}" OR IS_ABSOLUTE "${CMAKE_INSTALL_INCLUDEDIR}")
    string(REPLACE " " "\\ " QUENDA_PC_INCLUDEDIR "${CMAKE_INSTALL_FULL_INCLUDEDIR}")
else()
    file(RELATIVE_PATH QUENDA_PC_INCLUDEDIR
        "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/${CMAKE_INSTALL_INCLUDEDIR}")
    string(PREPEND QUENDA_PC_INCLUDEDIR "\${pcfiledir}/")
endif()
