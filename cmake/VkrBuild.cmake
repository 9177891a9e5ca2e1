# SPDX-License-Identifier: MIT
# What every target of this project shares.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

if(PROJECT_IS_TOP_LEVEL)
    set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
    set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
    set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
    if(NOT DEFINED CMAKE_COMPILE_WARNING_AS_ERROR)
        set(CMAKE_COMPILE_WARNING_AS_ERROR ON)
    endif()
endif()

if(NOT CMAKE_CXX_COMPILER_LAUNCHER)
    find_program(VKR_CCACHE ccache)
    if(VKR_CCACHE)
        # Paths in debug information are absolute: build folders may share what is compiled.
        set(CMAKE_CXX_COMPILER_LAUNCHER
            "${CMAKE_COMMAND}" -E env CCACHE_NOHASHDIR=1
            CCACHE_SLOPPINESS=pch_defines,time_macros "${VKR_CCACHE}")
    endif()
endif()

# Releases: what makes a mistake harder to exploit, as programs of Debian have it; and nothing of the
# folder they are built in, so that the same sources give the same files everywhere.
if(PROJECT_IS_TOP_LEVEL)
    include(CheckPIESupported)
    check_pie_supported()
    set(release "$<CONFIG:Release,RelWithDebInfo>")
    add_compile_options(
        "$<${release}:-D_FORTIFY_SOURCE=2;-fstack-protector-strong>"
        "$<${release}:-ffile-prefix-map=${PROJECT_BINARY_DIR}=build;-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.>"
    )
    if(WIN32)
        link_libraries("$<${release}:ssp>") # where the protector's functions are
    else()
        add_link_options("$<${release}:-Wl,-z,relro,-z,now>")
    endif()
    set(CMAKE_AUTORCC_OPTIONS --format-version 1) # later ones hold the times of the files
endif()

if(VKR_SANITIZE)
    add_compile_options(-fsanitize=${VKR_SANITIZE} -fno-sanitize-recover=all
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${VKR_SANITIZE})
endif()
if(VKR_COVERAGE)
    add_compile_options(--coverage -fprofile-update=atomic)
    add_link_options(--coverage)
endif()

# vkr_sources(<variable> <pattern>...): the files of the patterns, picked up again by every build.
function(vkr_sources variable)
    file(GLOB found CONFIGURE_DEPENDS LIST_DIRECTORIES OFF ${ARGN})
    set(${variable} ${found} PARENT_SCOPE)
endfunction()

# vkr_joined_sources(<variable> <source>...): sources that include these, one for each folder. They take
# a fraction of the time where all have to be compiled, and more of it after a change in one: for
# copies of the component that nobody works on.
function(vkr_joined_sources variable)
    set(joined)
    foreach(source IN LISTS ARGN)
        cmake_path(RELATIVE_PATH source BASE_DIRECTORY "${PROJECT_SOURCE_DIR}")
        cmake_path(GET source PARENT_PATH folder)
        set(file "${PROJECT_BINARY_DIR}/joined/${folder}.cpp")
        list(APPEND joined "${file}")
        string(APPEND text_of_${folder} "#include \"${source}\"\n")
    endforeach()
    list(REMOVE_DUPLICATES joined)
    foreach(file IN LISTS joined)
        cmake_path(GET file STEM folder)
        file(CONFIGURE OUTPUT "${file}" CONTENT "${text_of_${folder}}" @ONLY)
    endforeach()
    set(${variable} ${joined} PARENT_SCOPE)
endfunction()

# vkr_target(<target>): language level, include directory and warnings.
function(vkr_target target)
    target_compile_features(${target} PUBLIC cxx_std_20)
    target_include_directories(${target} PUBLIC "$<BUILD_INTERFACE:${VKRDataEntry_SOURCE_DIR}>")
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wconversion -Wshadow)
    # g++ 12 sees overlaps in std::string at -O3 where there are none (GCC bug 105651), and members of
    # variants and optionals used before they are set. The debug build keeps the second warning.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        target_compile_options(${target} PRIVATE -Wno-restrict
                                                 $<$<NOT:$<CONFIG:Debug>>:-Wno-maybe-uninitialized>)
    endif()
    # Calls within a shared library stay within it.
    if(BUILD_SHARED_LIBS)
        target_compile_options(
            ${target} PRIVATE "$<$<CONFIG:Release,RelWithDebInfo>:-fno-semantic-interposition>")
    endif()
endfunction()

# vkr_precompile(<target> <header>...): headers of other libraries that most sources of a target of
# tests include. Ours are left out: a change in one would compile every source again.
function(vkr_precompile target)
    if(NOT VKR_PRECOMPILE_TESTS)
        return()
    endif()
    target_precompile_headers(${target} PRIVATE ${ARGN})
    # What ccache needs to see through a precompiled header.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_compile_options(${target} PRIVATE -fpch-preprocess)
    else()
        target_compile_options(${target} PRIVATE "SHELL:-Xclang -fno-pch-timestamp")
    endif()
endfunction()

# vkr_headers_alone(<target> FOLDERS <folder>... LIBRARIES <library>...): sources that include one header
# of the folders each, twice. A source of a header's own name includes it first, without a precompiled
# header, and so shows already that it compiles by itself; tests/checks/own_header holds sources to that.
function(vkr_headers_alone target)
    cmake_parse_arguments(alone "" "" "FOLDERS;LIBRARIES" ${ARGN})
    set(sources)
    foreach(folder IN LISTS alone_FOLDERS)
        vkr_sources(headers "${PROJECT_SOURCE_DIR}/${folder}/*.hpp")
        foreach(header IN LISTS headers)
            string(REGEX REPLACE "hpp$" "cpp" own_source "${header}")
            if(EXISTS "${own_source}")
                continue()
            endif()
            cmake_path(RELATIVE_PATH header BASE_DIRECTORY "${PROJECT_SOURCE_DIR}")
            set(source "${CMAKE_CURRENT_BINARY_DIR}/alone/${header}.cpp")
            file(CONFIGURE OUTPUT "${source}" @ONLY
                 CONTENT "#include \"@header@\"\n#include \"@header@\" // a second time\n")
            list(APPEND sources "${source}")
        endforeach()
    endforeach()
    add_library(${target} OBJECT EXCLUDE_FROM_ALL ${sources})
    vkr_target(${target})
    target_compile_options(${target} PRIVATE -O0 -g0)
    target_link_libraries(${target} PRIVATE ${alone_LIBRARIES})
endfunction()
