# 32-bit: Debian's i386, whose programs the build machine's own processor runs. They find their loader and their
# libraries in the sysroot, so that the machine itself needs none of them.
set(panel_view_architecture i386)
set(panel_view_triplet i386-linux-gnu)
set(panel_view_compiler i686-linux-gnu)
include("${CMAKE_CURRENT_LIST_DIR}/debian-sysroot.cmake")

set(CMAKE_SYSTEM_PROCESSOR i686)
# The old tag, which holds for the libraries of libraries too.
foreach(kind IN ITEMS EXE SHARED MODULE)
    set(CMAKE_${kind}_LINKER_FLAGS_INIT "-Wl,--disable-new-dtags,-rpath,${panel_view_library_path}")
endforeach()
string(APPEND CMAKE_EXE_LINKER_FLAGS_INIT " -Wl,--dynamic-linker=${CMAKE_SYSROOT}/lib/ld-linux.so.2")
