# What the build can be told, and the compiler settings of the project's targets.

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "" FORCE)
endif()

set(PANEL_VIEW_QT 5 CACHE STRING "Toolkit of the library: 5 (Qt 5.15) or 4 (Qt 4.8)")
set(PANEL_VIEW_CATALOGUE_DIR "${PROJECT_SOURCE_DIR}/resource_manager/catalogue" CACHE PATH
    "Folder of the message catalogue that is compiled in")
foreach(file messages.tsv images.tsv texts)
    if(NOT EXISTS "${PANEL_VIEW_CATALOGUE_DIR}/${file}")
        message(FATAL_ERROR "PANEL_VIEW_CATALOGUE_DIR, ${PANEL_VIEW_CATALOGUE_DIR}, is no catalogue: "
            "there is no ${file} in it. Name the folder with messages.tsv, images.tsv and texts/.")
    endif()
endforeach()
set(PANEL_VIEW_SANITIZE "" CACHE STRING "Sanitizers, as the compiler's -fsanitize= takes them")
option(PANEL_VIEW_WERROR "Warnings are errors" OFF)
option(PANEL_VIEW_BENCHMARKS "Benchmarks beside their peers, which scripts/packages-bench lists" OFF)

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")

# panel_view_warnings: definitions and warnings, for what no sanitizer is to watch.
# panel_view_options: these and the sanitizers, for everything else. Each target links one of them privately.
add_library(panel_view_warnings INTERFACE)
target_compile_definitions(panel_view_warnings INTERFACE _FILE_OFFSET_BITS=64 QT_NO_KEYWORDS)
target_compile_options(panel_view_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    -Wsign-conversion -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual -Wformat=2 -Wcast-qual
    $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond> $<$<CXX_COMPILER_ID:GNU>:-Wlogical-op>
    $<$<BOOL:${PANEL_VIEW_WERROR}>:-Werror>)
add_library(panel_view_options INTERFACE)
target_link_libraries(panel_view_options INTERFACE panel_view_warnings)
if(PANEL_VIEW_SANITIZE)
    target_compile_options(panel_view_options INTERFACE
        -fsanitize=${PANEL_VIEW_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(panel_view_options INTERFACE -fsanitize=${PANEL_VIEW_SANITIZE})
endif()
