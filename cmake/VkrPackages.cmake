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
set(CPACK_COMPONENTS_ALL Runtime Development)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/lib")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME vkr-data-entry)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION misc)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
    "Lists and edits the fundamental data of listed companies.
Ten fiscal years and 35 quarters, prices, capital and notes of each company,
kept in one file or in a shared PostgreSQL database. Holds the shared libraries
of the component as well.")
# Loaded while running, so no linker knows of it.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS libqt6sql6-sqlite)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS "libqt6sql6-psql, qt6-wayland, fonts-dejavu-core")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY "=")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME vkr-data-entry-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS qt6-base-dev)
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
    "Headers and packages for CMake and pkg-config, to embed the component.
VKR::Company and VKR::Desktop need qt6-base-dev as well.")
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS Runtime)

if(TARGET vkr_designer_plugin)
    list(APPEND CPACK_COMPONENTS_ALL Designer)
    # A plugin fits one minor version of Qt, which its name tells.
    set(CPACK_DEBIAN_DESIGNER_PACKAGE_NAME
        vkr-data-entry-designer-qt${Qt6_VERSION_MAJOR}.${Qt6_VERSION_MINOR})
    set(CPACK_DEBIAN_DESIGNER_PACKAGE_SECTION libdevel)
    set(CPACK_DEBIAN_DESIGNER_PACKAGE_ENHANCES designer-qt6)
    set(CPACK_COMPONENT_DESIGNER_DESCRIPTION
        "The component in the widget box of Qt Designer.")
    set(CPACK_COMPONENT_DESIGNER_DEPENDS Runtime)
endif()

foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER "${component}" key)
    install(
        FILES "${PROJECT_SOURCE_DIR}/LICENSE"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${key}_PACKAGE_NAME}"
        RENAME copyright
        COMPONENT ${component})
endforeach()
include(CPack)
