# What the library and the stand-in have in common.
include(CMakePackageConfigHelpers)
include(GenerateExportHeader)

# quenda_library(TARGET NAME FOLDER) completes a library with the alias Quenda::NAME and the export header
# FOLDER/..._export.h.
function(quenda_library target name folder)
    add_library(Quenda::${name} ALIAS ${target})
    set_target_properties(${target} PROPERTIES
        EXPORT_NAME ${name}
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    string(TOLOWER ${target} file)
    generate_export_header(${target}
        EXPORT_FILE_NAME "${PROJECT_BINARY_DIR}/include/${folder}/${file}_export.h")
    target_include_directories(${target} PUBLIC
        "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>"
        "$<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/include>"
        "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/${target}>")
    target_compile_features(${target} PUBLIC cxx_std_17)
    target_link_libraries(${target}
        PUBLIC Qt5::Core Qt5::Xml Boost::headers
        PRIVATE $<BUILD_INTERFACE:QuendaBuildOptions>)
endfunction()

# quenda_install_library(TARGET RUN BUILD [EXCLUDE_FROM_ALL] [HEADERS FOLDER...] [PACKAGE LINE]
# [REQUIRES NAME]) installs a library in the component RUN. What a host is built with is in the component
# BUILD: headers, CMake package with LINE, and pkg-config file.
function(quenda_install_library target run build)
    cmake_parse_arguments(PARSE_ARGV 3 ARG "" "PACKAGE;REQUIRES" HEADERS)
    set(exclude ${ARG_UNPARSED_ARGUMENTS})
    install(TARGETS ${target} EXPORT ${target}Targets
        LIBRARY COMPONENT ${run} NAMELINK_COMPONENT ${build} ${exclude})
    # In a folder of their own, so that #include lines are the same with an installation and with a
    # checkout: <Help/Controller.h>, <Util/Logger.h>.
    install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/" "${PROJECT_BINARY_DIR}/include/" ${ARG_HEADERS}
        DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/${target}" COMPONENT ${build} ${exclude}
        FILES_MATCHING PATTERN "*.h")

    set(package "${CMAKE_INSTALL_LIBDIR}/cmake/${target}")
    configure_package_config_file("${QuendaHelp_SOURCE_DIR}/cmake/QuendaConfig.cmake.in" ${target}Config.cmake
        INSTALL_DESTINATION "${package}")
    write_basic_package_version_file(${target}ConfigVersion.cmake COMPATIBILITY SameMajorVersion)
    install(EXPORT ${target}Targets NAMESPACE Quenda:: DESTINATION "${package}" COMPONENT ${build} ${exclude})
    install(FILES
        "${CMAKE_CURRENT_BINARY_DIR}/${target}Config.cmake"
        "${CMAKE_CURRENT_BINARY_DIR}/${target}ConfigVersion.cmake"
        DESTINATION "${package}" COMPONENT ${build} ${exclude})

    # The headers are found relative to the pkg-config file, so that an installation can be moved, or in
    # the folder that a packager names. pkg-config itself escapes the blanks of ${pcfiledir}, but not
    # those of a folder that a file names.
    if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}" OR IS_ABSOLUTE "${CMAKE_INSTALL_INCLUDEDIR}")
        string(REPLACE " " "\\ " includedir "${CMAKE_INSTALL_FULL_INCLUDEDIR}")
    else()
        file(RELATIVE_PATH includedir "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/${CMAKE_INSTALL_INCLUDEDIR}")
        string(PREPEND includedir "\${pcfiledir}/")
    endif()
    string(TOLOWER ${target} file)
    configure_file("${QuendaHelp_SOURCE_DIR}/cmake/quenda.pc.in" ${file}.pc @ONLY)
    install(FILES "${CMAKE_CURRENT_BINARY_DIR}/${file}.pc"
        DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT ${build} ${exclude})
endfunction()
