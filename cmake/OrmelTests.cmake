# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: CC0-1.0

# How a test is built and run. The tests of a folder are named after it: ormel_test_room(accounts) makes
# ormel_add_test(userinfotest) the program and the test accounts-userinfotest.

set(SANDBOX "${PROJECT_SOURCE_DIR}/scripts/sandbox")
set(RESULTS_DIR "${PROJECT_BINARY_DIR}/autotests/results")
set(TESTSUPPORT_DIR "${PROJECT_SOURCE_DIR}/testsupport")
file(MAKE_DIRECTORY "${RESULTS_DIR}")

# ormel_test_room(<room>): tests that are added in this folder belong to <room>.
macro(ormel_test_room room)
    set(ORMEL_TEST_ROOM ${room})
endmacro()

# ormel_run_in_sandbox(<program> <name> [command...]): runs <program>, perhaps with a command before it.
# Besides the readable report it writes ROOM-<name>.tap, which scripts/test counts.
function(ormel_run_in_sandbox program name)
    set(test ${ORMEL_TEST_ROOM}-${name})
    add_test(NAME ${test}
        COMMAND "${SANDBOX}" ${ARGN} $<TARGET_FILE:${program}> -o -,txt -o "${RESULTS_DIR}/${test}.tap,tap"
        WORKING_DIRECTORY "${PROJECT_BINARY_DIR}"
    )
endfunction()

# ormel_ignore_leaks(<name>): for tests on an X server. The platform plugin leaks and is unloaded
# before the report, so its leaks cannot be suppressed by name. Offscreen, leaks are errors.
function(ormel_ignore_leaks name)
    ormel_test_environment(${name} "ASAN_OPTIONS=detect_leaks=0")
endfunction()

# ormel_test_environment(<name> <variable=value>...)
function(ormel_test_environment name)
    set_property(TEST ${ORMEL_TEST_ROOM}-${name} APPEND PROPERTY ENVIRONMENT ${ARGN})
endfunction()

# Each test links the same large libraries, which takes this linker a third of the time.
include(CheckLinkerFlag)
check_linker_flag(CXX -fuse-ld=lld HAVE_LLD)

# ormel_build_quickly(<target> [REUSE_FROM <target> | PRIVATE <precompiled header>...]): for test code, which takes
# more time to compile than to run. A debugger shows its lines, but not its local variables.
function(ormel_build_quickly target)
    target_compile_options(${target} PRIVATE -g1)
    if(CMAKE_BUILD_TYPE STREQUAL RelWithDebInfo)
        target_compile_options(${target} PRIVATE -O0)
    endif()
    if(HAVE_LLD)
        target_link_options(${target} PRIVATE -fuse-ld=lld)
    endif()
    if(ARGN)
        target_precompile_headers(${target} ${ARGN})
    endif()
endfunction()

# ormel_moc_included(<target> <source>): <source> includes what moc makes of it. One command is faster than
# the search of AUTOMOC in so many small programs.
function(ormel_moc_included target source)
    cmake_path(GET source STEM name)
    qt5_generate_moc("${source}" "${CMAKE_CURRENT_BINARY_DIR}/${name}.moc")
    target_sources(${target} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}/${name}.moc")
    set_target_properties(${target} PROPERTIES AUTOMOC OFF AUTORCC OFF AUTOUIC OFF)
endfunction()

# ormel_add_test(<name> [DISPLAY | DISPLAY_ONLY] [SOURCES source...] [LIBRARIES library...]
# [DEFINITIONS definition...]): the test <name>.cpp, run on the offscreen platform or, with DISPLAY,
# on an X server too. Sources of the library or the application may be added, to test what is
# private there.
function(ormel_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "DISPLAY;DISPLAY_ONLY" "" "SOURCES;LIBRARIES;DEFINITIONS")
    set(program ${ORMEL_TEST_ROOM}-${name})
    add_executable(${program} ${name}.cpp ${ARG_SOURCES})
    ecm_mark_as_test(${program})
    ormel_moc_included(${program} ${name}.cpp)
    ormel_build_quickly(${program} REUSE_FROM testsupport)
    target_compile_definitions(${program} PRIVATE ${ARG_DEFINITIONS})
    target_link_libraries(${program} PRIVATE testsupport ${ARG_LIBRARIES})
    foreach(source IN LISTS ARG_SOURCES)
        cmake_path(GET source PARENT_PATH folder)
        cmake_path(ABSOLUTE_PATH folder NORMALIZE)
        target_include_directories(${program} PRIVATE "${folder}")
    endforeach()
    if(NOT ARG_DISPLAY_ONLY)
        ormel_run_in_sandbox(${program} ${name})
    endif()
    if(ARG_DISPLAY OR ARG_DISPLAY_ONLY)
        ormel_run_in_sandbox(${program} ${name}-display "${PROJECT_SOURCE_DIR}/scripts/with-display")
        ormel_ignore_leaks(${name}-display)
    endif()
endfunction()

# ormel_add_thread_test(<name>): the test <name>.cpp, built with the thread sanitizer, which excludes other
# sanitizers, and linked to the library "threadchecked". Qt is not built with it, so the reports leave Qt out.
function(ormel_add_thread_test name)
    set(program ${ORMEL_TEST_ROOM}-${name})
    add_executable(${program} ${name}.cpp)
    ecm_mark_as_test(${program})
    ormel_moc_included(${program} ${name}.cpp)
    target_link_libraries(${program} PRIVATE threadchecked)
    ormel_run_in_sandbox(${program} ${name})
    ormel_test_environment(${name} "TSAN_OPTIONS=ignore_noninstrumented_modules=1:halt_on_error=1")
endfunction()

# ormel_add_script_test(<name> <script> [argument...]): a script, run in the sandbox; its exit status
# says whether it has passed.
function(ormel_add_script_test name script)
    cmake_path(ABSOLUTE_PATH script)
    add_test(NAME ${ORMEL_TEST_ROOM}-${name}
        COMMAND "${SANDBOX}" "${script}" ${ARGN}
        WORKING_DIRECTORY "${PROJECT_BINARY_DIR}"
    )
endfunction()
