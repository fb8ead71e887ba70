# 64-bit big-endian: Debian's s390x, cross-compiled and run under user-mode emulation.
set(panel_view_architecture s390x)
set(panel_view_triplet s390x-linux-gnu)
set(panel_view_compiler s390x-linux-gnu)
include("${CMAKE_CURRENT_LIST_DIR}/debian-sysroot.cmake")

set(CMAKE_SYSTEM_PROCESSOR s390x)
foreach(kind IN ITEMS EXE SHARED MODULE)
    set(CMAKE_${kind}_LINKER_FLAGS_INIT "-Wl,-rpath-link,${panel_view_library_path}")
endforeach()
set(CMAKE_CROSSCOMPILING_EMULATOR "qemu-s390x;-L;${CMAKE_SYSROOT}")
