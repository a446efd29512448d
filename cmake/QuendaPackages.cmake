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
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
    "${PROJECT_BINARY_DIR}/src" "${PROJECT_BINARY_DIR}/platform/QuendaCore")

# Debian wants a list of changes in its own form in each package, of the release that the project's
# own list begins with.
file(STRINGS "${PROJECT_SOURCE_DIR}/CHANGELOG.md" release REGEX "^## ${PROJECT_VERSION} " LIMIT_COUNT 1)
string(REGEX REPLACE ".*[(](.*)[)]" "\\1" date "${release}")
execute_process(COMMAND date --utc --rfc-email --date=${date} OUTPUT_VARIABLE date
    OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
file(CONFIGURE OUTPUT changelog.Debian @ONLY CONTENT "\
@CPACK_PACKAGE_NAME@ (@PROJECT_VERSION@-@CPACK_DEBIAN_PACKAGE_RELEASE@) unstable; urgency=medium

  * The release @PROJECT_VERSION@.

 -- @maintainer@  @date@
")

execute_process(COMMAND gzip -9 -n -f -k changelog.Debian
    WORKING_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}" COMMAND_ERROR_IS_FATAL ANY)

# quenda_package(NAME SECTION COMPONENTS DEPENDENCIES SYNOPSIS DESCRIPTION-LINE...)
macro(quenda_package name section components dependencies synopsis)
    string(TOUPPER ${name} upper)
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name})
    set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
    set(CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS "${dependencies}")
    string(JOIN "\n" CPACK_COMPONENT_${upper}_DESCRIPTION "${synopsis}" ${ARGN})
    list(APPEND CPACK_COMPONENTS_ALL ${components})
    foreach(component ${components})
        string(TOUPPER ${component} component_upper)
        set(CPACK_COMPONENT_${component_upper}_GROUP ${name})
    endforeach()
    list(GET CPACK_COMPONENTS_ALL -1 last)
    install(FILES "${CMAKE_CURRENT_BINARY_DIR}/changelog.Debian.gz"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${name}" COMPONENT ${last} EXCLUDE_FROM_ALL)
endmacro()

set(library libquendahelp${PROJECT_VERSION_MAJOR})
set(same_version "${library} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
set(triggers "${PROJECT_SOURCE_DIR}/cmake/triggers")
quenda_package(${library} libs Runtime ""
    "product configuration for pattern-design applications"
    "The library that the applications load at start-up. It needs the library of"
    "the framework, libQuendaCore: from the framework's maker or, for trying"
    "things out, from the package quendacore-stand-in.")
set(CPACK_DEBIAN_${upper}_PACKAGE_CONTROL_EXTRA "${triggers}")
quenda_package(libquendahelp-dev libdevel Development "${same_version}, qtbase5-dev, libboost-dev"
    "product configuration for pattern-design applications (development)"
    "What applications are built with that load ${library}: headers, CMake"
    "package and pkg-config file.")
if(TARGET quenda-workbench)
    quenda_package(quenda-workbench devel Workbench "${same_version}"
        "checker and preview of the documents of pattern-design applications"
        "For those who edit the documents of a product: checks them, shows and"
        "pictures what they make of an application's window, outlines what they"
        "hold. With RELAX NG schemas for editors.")
endif()
if(TARGET reference)
    quenda_package(quendahelp-doc doc Documentation ""
        "product configuration for pattern-design applications (documentation)"
        "The reference of the library and its pages, in HTML and as help for Qt"
        "Creator and Assistant.")
    set(CPACK_DEBIAN_${upper}_PACKAGE_ARCHITECTURE all)
endif()
if(TARGET quenda-host)
    quenda_package(quendacore-stand-in devel "QuendaCore;Host"
        "${same_version}, qtbase5-dev, libboost-dev"
        "stand-in for the framework of pattern-design applications"
        "A small libQuendaCore with its headers, and a reference host: enough to"
        "build and run what loads ${library} where there is no framework."
        "."
        "A machine that has the maker's framework does not want this package, which"
        "would take its place.")
    set(CPACK_DEBIAN_${upper}_PACKAGE_CONTROL_EXTRA "${triggers}")
endif()
include(CPack)
