# GoogleTest: the installed one or, where none is installed for the target, one that is built from its sources.
# Comes before the project's own compiler settings, which are not for those sources.
set(PANEL_VIEW_GOOGLETEST_DIR "" CACHE PATH "Sources of GoogleTest, to build it for the target")

if(PANEL_VIEW_GOOGLETEST_DIR)
    set(BUILD_GMOCK OFF)
    set(INSTALL_GTEST OFF)
    add_subdirectory("${PANEL_VIEW_GOOGLETEST_DIR}" googletest EXCLUDE_FROM_ALL SYSTEM)
else()
    find_package(GTest REQUIRED)
endif()
