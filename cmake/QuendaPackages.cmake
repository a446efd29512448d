# Debian packages of what is installed, by component, with "cpack -G DEB".
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quendahelp)
# Who hands packages on says who he is, as to Debian's own tools.
set(maintainer "libQuendaHelp developers <developers@quendahelp.invalid>")
if(DEFINED ENV{DEBFULLNAME} AND DEFINED ENV{DEBEMAIL})
    set(maintainer "$ENV{DEBFULLNAME} <$ENV{DEBEMAIL}>")
endif()
set(CPACK_PACKAGE_CONTACT "${maintainer}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_DEBUGINFO_PACKAGE ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
    "${PROJECT_BINARY_DIR}/src" "${PROJECT_BINARY_DIR}/platform/QuendaCore")

# Debian wants a list of changes in its own form in each package. Its time is SOURCE_DATE_EPOCH, if set.
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(CONFIGURE OUTPUT changelog.Debian @ONLY CONTENT "\
@CPACK_PACKAGE_NAME@ (@PROJECT_VERSION@-@CPACK_DEBIAN_PACKAGE_RELEASE@) unstable; urgency=medium

  * The release @PROJECT_VERSION@.

 -- @maintainer@  @date@
")
execute_process(COMMAND gzip -9 -n -f -k changelog.Debian
    WORKING_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}" COMMAND_ERROR_IS_FATAL ANY)

# A package of COMPONENTS of the installation. DESCRIPTION is a list of lines, the synopsis first, and
# OVERRIDES one of lintian's tags and the reasons to pass them over; the rest are CPack's own fields.
function(quenda_package name)
    set(fields SECTION ARCHITECTURE DEPENDS CONTROL_EXTRA)
    cmake_parse_arguments(PARSE_ARGV 1 PACKAGE "" "${fields}" "COMPONENTS;DESCRIPTION;OVERRIDES")
    string(TOUPPER ${name} upper)
    set(PACKAGE_NAME ${name})
    foreach(field NAME ${fields})
        set(CPACK_DEBIAN_${upper}_PACKAGE_${field} "${PACKAGE_${field}}" PARENT_SCOPE)
    endforeach()
    string(JOIN "\n" description ${PACKAGE_DESCRIPTION})
    set(CPACK_COMPONENT_${upper}_DESCRIPTION "${description}" PARENT_SCOPE)
    set(CPACK_COMPONENTS_ALL ${CPACK_COMPONENTS_ALL} ${PACKAGE_COMPONENTS} PARENT_SCOPE)
    foreach(component ${PACKAGE_COMPONENTS})
        string(TOUPPER ${component} component_upper)
        set(CPACK_COMPONENT_${component_upper}_GROUP ${name} PARENT_SCOPE)
    endforeach()
    list(GET PACKAGE_COMPONENTS 0 component)
    install(FILES "${CMAKE_CURRENT_BINARY_DIR}/changelog.Debian.gz"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${name}" COMPONENT ${component} EXCLUDE_FROM_ALL)
    if(PACKAGE_OVERRIDES)
        string(JOIN "\n" overrides ${PACKAGE_OVERRIDES})
        file(WRITE "${CMAKE_CURRENT_BINARY_DIR}/overrides/${name}" "${overrides}\n")
        install(FILES "${CMAKE_CURRENT_BINARY_DIR}/overrides/${name}"
            DESTINATION "${CMAKE_INSTALL_DATADIR}/lintian/overrides" COMPONENT ${component} EXCLUDE_FROM_ALL)
    endif()
endfunction()

set(library libquendahelp${PROJECT_VERSION_MAJOR})
set(same_version "${library} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
set(triggers "${PROJECT_SOURCE_DIR}/cmake/triggers")
set(stripped_overrides
    "# CPack strips with objcopy, which keeps the section that names the compiler."
    "binary-has-unneeded-section")
set(library_overrides ${stripped_overrides}
    "# CPack always writes these scripts. They do what the trigger does."
    "maintscript-calls-ldconfig"
    "# The symbols change only with the SONAME."
    "no-symbols-control-file")
quenda_package(${library}
    SECTION libs
    COMPONENTS Runtime
    CONTROL_EXTRA "${triggers}"
    DESCRIPTION "product configuration for pattern-design applications"
        "The library that the applications load at start-up. It needs the library of"
        "the framework, libQuendaCore.so.1, which Debian does not have: from the"
        "framework's maker or, for trying things out, from the package"
        "quendacore-stand-in."
    OVERRIDES ${library_overrides})
quenda_package(libquendahelp-dev
    SECTION libdevel
    COMPONENTS Development
    DEPENDS "${same_version}, qtbase5-dev, libboost-dev"
    DESCRIPTION "product configuration for pattern-design applications (development)"
        "What applications are built with that load ${library}: headers, CMake"
        "package and pkg-config file. They also need the headers of the framework,"
        "from its maker or from the package quendacore-stand-in.")
if(TARGET quenda-workbench)
    quenda_package(quenda-workbench
        SECTION devel
        COMPONENTS Workbench
        DESCRIPTION "checker and preview of the documents of pattern-design applications"
            "For those who edit the documents of a product: checks them, shows and"
            "pictures what they make of an application's window, and outlines what they"
            "contain. With RELAX NG schemas for editors."
        OVERRIDES ${stripped_overrides})
endif()
if(TARGET reference)
    quenda_package(quendahelp-doc
        SECTION doc
        ARCHITECTURE all
        COMPONENTS Documentation
        DESCRIPTION "product configuration for pattern-design applications (documentation)"
            "The reference of the library and its pages, in HTML and as help for Qt"
            "Creator and Assistant."
        OVERRIDES "# It is for Qt Creator, Assistant and a browser."
            "possible-documentation-but-no-doc-base-registration")
endif()
if(TARGET quenda-host)
    quenda_package(quendacore-stand-in
        SECTION devel
        COMPONENTS QuendaCore Host
        DEPENDS "${same_version}, qtbase5-dev, libboost-dev"
        CONTROL_EXTRA "${triggers}"
        DESCRIPTION "stand-in for the framework of pattern-design applications"
            "A small libQuendaCore with its headers, and a reference host: enough to"
            "build and run what loads ${library} where there is no framework."
            "."
            "A machine that has the maker's framework does not want this package, which"
            "would take its place."
        OVERRIDES ${library_overrides}
            "# One small package of the library and all that is built with it, for trying"
            "# things out."
            "link-to-shared-library-in-wrong-package"
            "package-name-doesnt-match-sonames")
endif()
include(CPack)
