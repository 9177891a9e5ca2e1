# SPDX-License-Identifier: MIT
# What is installed, and where: libraries with their public headers, the CMake package, pkg-config
# files, and programs with what a desktop needs to list them.
#
# Components of the installation: Runtime (the program), Tools (the command line), one for each shared library, named as the
# library, Development (headers, packages for CMake and pkg-config), Designer (the plugin).
#
# The target vkr_installed is all that is installed.

set(VKR_INCLUDE_DIR "${CMAKE_INSTALL_INCLUDEDIR}/vkr-data-entry")
set(VKR_CMAKE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/VKRDataEntry")
set(VKR_PKGCONFIG_DIR "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

# Day of the release, as the change log has it: VKR_DATE as 2026-11-21, VKR_EPOCH in seconds.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/CHANGELOG.md")
string(REPLACE "." "[.]" version "${PROJECT_VERSION}")
file(STRINGS "${PROJECT_SOURCE_DIR}/CHANGELOG.md" heading LIMIT_COUNT 1
     REGEX "^## ${version} [(][0-9]+ [A-Z][a-z]+ [0-9]+[)]$")
if(NOT heading MATCHES "[(]([0-9]+) ([A-Z][a-z]+) ([0-9]+)[)]$")
    message(FATAL_ERROR "CHANGELOG.md has no \"## ${PROJECT_VERSION} (day month year)\"")
endif()
set(day ${CMAKE_MATCH_1})
set(year ${CMAKE_MATCH_3})
set(months January February March April May June July August September October November December)
list(FIND months ${CMAKE_MATCH_2} month)
math(EXPR month "${month} + 1")
string(REGEX REPLACE "^0*(..)$" "\\1" day_text "0${day}")
string(REGEX REPLACE "^0*(..)$" "\\1" month_text "0${month}")
set(VKR_DATE "${year}-${month_text}-${day_text}")
# Days since 1970, of a year that begins in March.
math(EXPR from_march "(${month} + 9) % 12")
math(EXPR march_year "${year} - (${from_march} / 10)")
math(EXPR VKR_EPOCH
     "(365 * ${march_year} + ${march_year} / 4 - ${march_year} / 100 + ${march_year} / 400 \
       + (153 * ${from_march} + 2) / 5 + ${day} - 719469) * 86400")

define_property(GLOBAL PROPERTY VKR_INSTALLED)

# vkr_runpath(<target> <folder>): finds our libraries from the folder it is installed to, wherever
# the installation is moved.
function(vkr_runpath target folder)
    file(RELATIVE_PATH way "/prefix/${folder}" "/prefix/${CMAKE_INSTALL_LIBDIR}")
    set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN/${way}")
    set_property(GLOBAL APPEND PROPERTY VKR_INSTALLED ${target})
endfunction()

# vkr_shipped_library(<target> NAME <name> DESCRIPTION <text> HEADERS <header>...
#                     [REQUIRES <module>...] [REQUIRES_PRIVATE <module>...])
#
# VKR::<name> of the CMake package and vkr-<name>.pc. REQUIRES are the modules of pkg-config that the
# headers need, REQUIRES_PRIVATE those that only the library does; vkr-data-entry is added.
function(vkr_shipped_library target)
    cmake_parse_arguments(lib "" "NAME;DESCRIPTION" "HEADERS;REQUIRES;REQUIRES_PRIVATE" ${ARGN})
    string(REGEX REPLACE "([a-z])([A-Z])" "\\1-\\2" module "vkr-${lib_NAME}")
    string(TOLOWER "${module}" module)
    string(REPLACE "-" "_" file "${module}")
    set_target_properties(
        ${target}
        PROPERTIES EXPORT_NAME ${lib_NAME}
                   OUTPUT_NAME ${file}
                   VERSION ${PROJECT_VERSION}
                   SOVERSION ${PROJECT_VERSION_MAJOR}
                   DEFINE_SYMBOL "" # the same compile line, shared or static
                   VKR_PUBLIC_HEADERS "${lib_HEADERS}")
    if(NOT VKR_INSTALL)
        return()
    endif()

    vkr_runpath(${target} "${CMAKE_INSTALL_LIBDIR}")
    target_include_directories(${target} INTERFACE "$<INSTALL_INTERFACE:${VKR_INCLUDE_DIR}>")
    install(
        TARGETS ${target}
        EXPORT VKR${lib_NAME}
        LIBRARY COMPONENT ${lib_NAME} NAMELINK_COMPONENT Development
        ARCHIVE COMPONENT Development)
    install(
        EXPORT VKR${lib_NAME}
        NAMESPACE VKR::
        FILE VKR${lib_NAME}Targets.cmake
        DESTINATION "${VKR_CMAKE_DIR}"
        COMPONENT Development)
    foreach(header IN LISTS lib_HEADERS)
        cmake_path(GET header PARENT_PATH folder)
        install(FILES "${PROJECT_SOURCE_DIR}/${header}" DESTINATION "${VKR_INCLUDE_DIR}/${folder}"
                COMPONENT Development)
    endforeach()

    file(RELATIVE_PATH MODULE_PREFIX "/prefix/${VKR_PKGCONFIG_DIR}" /prefix)
    string(REGEX REPLACE "/$" "" MODULE_PREFIX "${MODULE_PREFIX}")
    set(MODULE ${module})
    set(MODULE_LIBRARY ${file})
    set(MODULE_DESCRIPTION "${lib_DESCRIPTION}")
    if(NOT lib_NAME STREQUAL "DataEntry")
        list(PREPEND lib_REQUIRES vkr-data-entry)
    endif()
    list(JOIN lib_REQUIRES ", " MODULE_REQUIRES)
    list(JOIN lib_REQUIRES_PRIVATE ", " MODULE_REQUIRES_PRIVATE)
    configure_file("${PROJECT_SOURCE_DIR}/cmake/module.pc.in"
                   "${PROJECT_BINARY_DIR}/shipping/${module}.pc" @ONLY)
    install(FILES "${PROJECT_BINARY_DIR}/shipping/${module}.pc" DESTINATION "${VKR_PKGCONFIG_DIR}"
            COMPONENT Development)
endfunction()
define_property(TARGET PROPERTY VKR_PUBLIC_HEADERS)

# vkr_install_man_page(<name> <component>): packaging/<name>.1.in.
function(vkr_install_man_page name component)
    set(page "${PROJECT_BINARY_DIR}/shipping/${name}.1")
    configure_file("${PROJECT_SOURCE_DIR}/packaging/${name}.1.in" "${page}" @ONLY)
    find_program(VKR_GZIP gzip REQUIRED)
    execute_process(COMMAND "${VKR_GZIP}" -9nkf "${page}" COMMAND_ERROR_IS_FATAL ANY)
    install(FILES "${page}.gz" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT ${component})
endfunction()

# vkr_install_command(<target>): the program of the command line with its manual page and its
# completion for bash.
function(vkr_install_command target)
    if(NOT VKR_INSTALL)
        return()
    endif()
    vkr_runpath(${target} "${CMAKE_INSTALL_BINDIR}")
    install(TARGETS ${target} RUNTIME COMPONENT Tools)
    vkr_install_man_page(${target} Tools)
    install(FILES "${PROJECT_SOURCE_DIR}/packaging/${target}.bash-completion"
            DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions"
            RENAME ${target} COMPONENT Tools)
endfunction()

# vkr_install_application(<target>): the program with its samples, menu entry, description for
# software catalogues, icons, and manual page.
function(vkr_install_application target)
    if(NOT VKR_INSTALL)
        return()
    endif()
    vkr_runpath(${target} "${CMAKE_INSTALL_BINDIR}")
    install(TARGETS ${target} RUNTIME COMPONENT Runtime)
    install(DIRECTORY "${PROJECT_SOURCE_DIR}/samples/"
            DESTINATION "${CMAKE_INSTALL_DATADIR}/vkr-data-entry/samples" COMPONENT Runtime)

    set(from "${PROJECT_SOURCE_DIR}/packaging")
    set(to "${PROJECT_BINARY_DIR}/shipping")
    configure_file("${from}/vkr-host.metainfo.xml.in" "${to}/vkr-host.metainfo.xml" @ONLY)
    set(data "${CMAKE_INSTALL_DATADIR}")
    install(FILES "${from}/vkr-host.desktop" DESTINATION "${data}/applications" COMPONENT Runtime)
    install(FILES "${to}/vkr-host.metainfo.xml" DESTINATION "${data}/metainfo" COMPONENT Runtime)
    vkr_install_man_page(vkr-host Runtime)
    install(FILES "${from}/icons/vkr-host.svg"
            DESTINATION "${data}/icons/hicolor/scalable/apps" COMPONENT Runtime)
    foreach(size IN ITEMS 16 24 32 48 64 128 256)
        install(
            FILES "${from}/icons/vkr-host-${size}.png"
            DESTINATION "${data}/icons/hicolor/${size}x${size}/apps"
            RENAME vkr-host.png
            COMPONENT Runtime)
    endforeach()
endfunction()

# vkr_install_package(): what find_package(VKRDataEntry) reads.
function(vkr_install_package)
    get_property(installed GLOBAL PROPERTY VKR_INSTALLED)
    add_custom_target(vkr_installed DEPENDS ${installed})
    include(CMakePackageConfigHelpers)
    configure_package_config_file(
        "${PROJECT_SOURCE_DIR}/cmake/VKRDataEntryConfig.cmake.in"
        "${PROJECT_BINARY_DIR}/shipping/VKRDataEntryConfig.cmake"
        INSTALL_DESTINATION "${VKR_CMAKE_DIR}" NO_SET_AND_CHECK_MACRO)
    write_basic_package_version_file(
        "${PROJECT_BINARY_DIR}/shipping/VKRDataEntryConfigVersion.cmake"
        COMPATIBILITY SameMajorVersion)
    install(
        FILES "${PROJECT_BINARY_DIR}/shipping/VKRDataEntryConfig.cmake"
              "${PROJECT_BINARY_DIR}/shipping/VKRDataEntryConfigVersion.cmake"
        DESTINATION "${VKR_CMAKE_DIR}"
        COMPONENT Development)
endfunction()
