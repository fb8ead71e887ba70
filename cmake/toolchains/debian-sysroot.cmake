# What the toolchain files of targets with a sysroot share. They set panel_view_architecture (Debian's name),
# panel_view_triplet (of its folders) and panel_view_compiler (prefix of the cross compiler's programs).
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_C_COMPILER ${panel_view_compiler}-gcc)
set(CMAKE_CXX_COMPILER ${panel_view_compiler}-g++)
set(CMAKE_LIBRARY_ARCHITECTURE ${panel_view_triplet})

get_filename_component(CMAKE_SYSROOT
    "${CMAKE_CURRENT_LIST_DIR}/../../build/sysroot-${panel_view_architecture}" ABSOLUTE)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Libraries that a library of the sysroot needs.
set(panel_view_folders "${CMAKE_SYSROOT}/usr/lib/${panel_view_triplet}" "${CMAKE_SYSROOT}/lib/${panel_view_triplet}")
list(JOIN panel_view_folders ":" panel_view_library_path)
