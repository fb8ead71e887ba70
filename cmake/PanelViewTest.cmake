# What sanitized programs need in their environment: the leaks of the toolkit's own are left out.
set(PANEL_VIEW_SANITIZER_ENVIRONMENT
    "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/leaks.supp:print_suppressions=0"
    "UBSAN_OPTIONS=print_stacktrace=1")

set(PANEL_VIEW_TEST_ARGUMENTS "" CACHE STRING
    "Arguments of every test program, such as -qws with Qt for Embedded Linux")

# Seconds; each process of an emulated program takes half a second to start, one with a sanitizer hardly less.
set(PANEL_VIEW_TEST_TIMEOUT 300)
if(CMAKE_CROSSCOMPILING_EMULATOR OR PANEL_VIEW_SANITIZE)
    set(PANEL_VIEW_TEST_TIMEOUT 1200)
endif()

# panel_view_add_test(NAME target [DEVICE])
#
# Registers a test executable. With DEVICE it runs in a device tree of its own, empty and writable. A cross build's
# runs under its emulator, if it needs one.
function(panel_view_add_test name target)
    set(command ${CMAKE_CROSSCOMPILING_EMULATOR} $<TARGET_FILE:${target}> ${PANEL_VIEW_TEST_ARGUMENTS})
    if("DEVICE" IN_LIST ARGN)
        set(command "${PROJECT_SOURCE_DIR}/scripts/device-shell" --scratch ${command})
    endif()
    add_test(NAME ${name} COMMAND ${command})
    set_tests_properties(${name} PROPERTIES TIMEOUT ${PANEL_VIEW_TEST_TIMEOUT} ENVIRONMENT
        "QT_QPA_PLATFORM=offscreen;${PANEL_VIEW_SANITIZER_ENVIRONMENT}")
endfunction()

# panel_view_program(VARIABLE TARGET)
#
# VARIABLE receives the path by which tests start a program as a process: that of its file or, where an emulator must
# run it, of a script that starts the emulator.
function(panel_view_program variable target)
    if(NOT CMAKE_CROSSCOMPILING_EMULATOR)
        set(${variable} $<TARGET_FILE:${target}> PARENT_SCOPE)
        return()
    endif()
    set(launcher "${PROJECT_BINARY_DIR}/launch/${target}")
    get_target_property(has_launcher ${target} PANEL_VIEW_HAS_LAUNCHER)
    if(NOT has_launcher)
        list(JOIN CMAKE_CROSSCOMPILING_EMULATOR " " emulator)
        file(GENERATE OUTPUT "${launcher}"
            CONTENT "#!/bin/sh\nexec ${emulator} $<TARGET_FILE:${target}> \"$@\"\n"
            FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
        set_target_properties(${target} PROPERTIES PANEL_VIEW_HAS_LAUNCHER TRUE)
    endif()
    set(${variable} "${launcher}" PARENT_SCOPE)
endfunction()
