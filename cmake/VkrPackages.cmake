# SPDX-License-Identifier: MIT
# Debian packages, one per component of the installation: cpack -G DEB.
set(CPACK_PACKAGE_NAME vkr-data-entry)
set(CPACK_PACKAGE_VENDOR "The VKRDataEntry authors")
set(CPACK_PACKAGE_CONTACT "The VKRDataEntry authors <maintainers@vkr-data-entry.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_RESOURCE_FILE_LICENSE "${PROJECT_SOURCE_DIR}/LICENSE")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_GENERATOR DEB)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/lib")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY "=")

# Files carry the day of the release, so that two packages of the same sources are the same.
file(WRITE "${PROJECT_BINARY_DIR}/shipping/cpack_day.cmake"
     "set(ENV{SOURCE_DATE_EPOCH} ${VKR_EPOCH})\n")
set(CPACK_PROJECT_CONFIG_FILE "${PROJECT_BINARY_DIR}/shipping/cpack_day.cmake")

# vkr_package(<component> <package> SECTION <section> DESCRIPTION <text> [DEPENDS <component>...]
#             [REQUIRES|RECOMMENDS|SUGGESTS|ENHANCES <packages>])
macro(vkr_package component package)
    cmake_parse_arguments(deb "" "SECTION;DESCRIPTION;REQUIRES;RECOMMENDS;SUGGESTS;ENHANCES" "DEPENDS"
                          ${ARGN})
    string(TOUPPER ${component} key)
    if("${deb_SECTION}" STREQUAL "libs")
        set(CPACK_DEBIAN_${key}_PACKAGE_CONTROL_EXTRA ${ldconfig})
    endif()
    list(APPEND CPACK_COMPONENTS_ALL ${component})
    set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${package})
    set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${deb_SECTION})
    set(CPACK_COMPONENT_${key}_DESCRIPTION "${deb_DESCRIPTION}")
    set(CPACK_COMPONENT_${key}_DEPENDS ${deb_DEPENDS})
    foreach(field IN ITEMS RECOMMENDS SUGGESTS ENHANCES)
        if(deb_${field})
            set(CPACK_DEBIAN_${key}_PACKAGE_${field} "${deb_${field}}")
        endif()
    endforeach()
    if(deb_REQUIRES)
        set(CPACK_DEBIAN_${key}_PACKAGE_DEPENDS "${deb_REQUIRES}")
    endif()
    set(documents "${CMAKE_INSTALL_DATADIR}/doc/${package}")
    install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION "${documents}" RENAME copyright
            COMPONENT ${component})
    install(FILES "${PROJECT_BINARY_DIR}/shipping/changelog.gz" DESTINATION "${documents}"
            COMPONENT ${component})
endmacro()

# The loader's cache follows a library by a trigger. CPack writes scripts for that unless it is told of
# scripts of our own; of those it leaves out what is not there.
file(WRITE "${PROJECT_BINARY_DIR}/shipping/triggers" "activate-noawait ldconfig\n")
set(ldconfig "${PROJECT_BINARY_DIR}/shipping/triggers" "${PROJECT_BINARY_DIR}/shipping/none/postinst"
             "${PROJECT_BINARY_DIR}/shipping/none/postrm")

# What a package's own change log says: the versions, and where their changes stand.
execute_process(
    COMMAND env LC_ALL=C date -u -R -d "@${VKR_EPOCH}" OUTPUT_VARIABLE day OUTPUT_STRIP_TRAILING_WHITESPACE
                                          COMMAND_ERROR_IS_FATAL ANY)
file(WRITE "${PROJECT_BINARY_DIR}/shipping/changelog"
     "vkr-data-entry (${PROJECT_VERSION}) stable; urgency=medium\n\n"
     "  * The changes are told in CHANGELOG.md of the sources.\n\n"
     " -- ${CPACK_PACKAGE_CONTACT}  ${day}\n")
find_program(VKR_GZIP gzip REQUIRED)
execute_process(
    COMMAND "${VKR_GZIP}" -9nkf "${PROJECT_BINARY_DIR}/shipping/changelog" COMMAND_ERROR_IS_FATAL ANY)

vkr_package(
    DataEntry libvkr-data-entry${PROJECT_VERSION_MAJOR}
    SECTION libs
    DESCRIPTION
        "Data entry for a listed company's fundamentals, the component
All rules of the form that edits a company's figures, without a toolkit.")
set(libraries DataEntry)
if(TARGET vkr_company_store)
    vkr_package(
        Company libvkr-company${PROJECT_VERSION_MAJOR}
        SECTION libs
        DEPENDS DataEntry
        REQUIRES libqt6sql6-sqlite # loaded while running, so no linker knows of it
        RECOMMENDS libqt6sql6-psql
        DESCRIPTION
            "Data entry for a listed company's fundamentals, the store
Keeps companies in one file or in a shared PostgreSQL database.")
    vkr_package(
        Desktop libvkr-desktop${PROJECT_VERSION_MAJOR}
        SECTION libs
        DEPENDS DataEntry
        DESCRIPTION
            "Data entry for a listed company's fundamentals, the widget
Shows the component as a widget of Qt.")
    list(APPEND libraries Company Desktop)
    vkr_package(
        Tools vkr-data-entry-tools
        SECTION misc
        DEPENDS DataEntry Company
        RECOMMENDS "libqt6sql6-psql, fonts-dejavu-core"
        DESCRIPTION
            "Fundamental data of listed companies on the command line
Lists, shows, imports, exports and checks companies in scripts and on servers,
without a display.")
    vkr_package(
        Runtime vkr-data-entry
        SECTION misc
        DEPENDS ${libraries}
        RECOMMENDS "libqt6sql6-psql, qt6-wayland, fonts-dejavu-core"
        DESCRIPTION
            "Lists and edits the fundamental data of listed companies
Ten fiscal years and 35 quarters, prices, capital and notes of each company,
kept in one file or in a shared PostgreSQL database.")
endif()
vkr_package(
    Development vkr-data-entry-dev
    SECTION libdevel
    DEPENDS ${libraries}
    SUGGESTS qt6-base-dev
    DESCRIPTION
        "Data entry for a listed company's fundamentals, for developers
Headers and packages for CMake and pkg-config, to embed the component.
VKR::Company and VKR::Desktop need qt6-base-dev as well.")
if(TARGET vkr_designer_plugin)
    # A plugin fits one minor version of Qt, which its name tells.
    vkr_package(
        Designer vkr-data-entry-designer-qt${Qt6_VERSION_MAJOR}.${Qt6_VERSION_MINOR}
        SECTION libdevel
        DEPENDS ${libraries}
        ENHANCES designer-qt6
        DESCRIPTION
            "Data entry for a listed company's fundamentals, in Qt Designer
Brings the component into the widget box of Qt Designer.")
endif()
include(CPack)
