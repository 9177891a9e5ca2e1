# SPDX-License-Identifier: MIT
# cmake -D build=<folder> -D prefix=<folder> -P install.cmake: installs into an empty prefix.
file(REMOVE_RECURSE "${prefix}")
execute_process(COMMAND "${CMAKE_COMMAND}" --install "${build}" --prefix "${prefix}"
                OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

# Nothing that is installed leads back to where it was built.
file(GLOB_RECURSE texts "${prefix}/*.cmake" "${prefix}/*.pc")
if(NOT texts)
    message(FATAL_ERROR "No package was installed")
endif()
foreach(text IN LISTS texts)
    file(READ "${text}" content)
    foreach(folder IN ITEMS "${prefix}" "${build}")
        string(FIND "${content}" "${folder}" at)
        if(NOT at EQUAL -1)
            message(FATAL_ERROR "${text} names ${folder}")
        endif()
    endforeach()
endforeach()
