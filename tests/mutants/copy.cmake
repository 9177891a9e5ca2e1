# SPDX-License-Identifier: MIT
# What scripts/mutants includes at the end of its copy: mutants that compile, with whatever warning. What
# it has not changed is built as ever.
target_sources(vkr_data_entry PRIVATE "${CMAKE_CURRENT_LIST_DIR}/switch.cpp")
target_sources(vkr_component_tests PRIVATE "${CMAKE_CURRENT_LIST_DIR}/main.cpp")
set_source_files_properties(${VKR_MUTATED} PROPERTIES COMPILE_OPTIONS "-w;-g0;-fdiagnostics-column-unit=byte")
