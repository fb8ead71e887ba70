# What sanitized programs need in their environment: the leaks of the toolkit's own are left out.
set(PANEL_VIEW_SANITIZER_ENVIRONMENT
    "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/leaks.supp:print_suppressions=0"
    "UBSAN_OPTIONS=print_stacktrace=1")

# panel_view_add_test(NAME target [DEVICE])
#
# Registers a test executable. With DEVICE it runs in a device tree of its own, empty and writable.
function(panel_view_add_test name target)
    set(command $<TARGET_FILE:${target}>)
    if("DEVICE" IN_LIST ARGN)
        set(command "${PROJECT_SOURCE_DIR}/scripts/device-shell" --scratch ${command})
    endif()
    add_test(NAME ${name} COMMAND ${command})
    set_tests_properties(${name} PROPERTIES TIMEOUT 300 ENVIRONMENT
        "QT_QPA_PLATFORM=offscreen;${PANEL_VIEW_SANITIZER_ENVIRONMENT}")
endfunction()
