# Compiler settings of every target of the project, and what the build can be told.

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "" FORCE)
endif()

set(PANEL_VIEW_QT 5 CACHE STRING "Toolkit of the library: 5 (Qt 5.15) or 4 (Qt 4.8)")
set(PANEL_VIEW_CATALOGUE_DIR "${PROJECT_SOURCE_DIR}/resource_manager/catalogue" CACHE PATH
    "Folder of the message catalogue that is compiled in")
set(PANEL_VIEW_SANITIZE "" CACHE STRING "Sanitizers, as the compiler's -fsanitize= takes them")
option(PANEL_VIEW_WERROR "Warnings are errors" OFF)

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")

add_compile_definitions(_FILE_OFFSET_BITS=64 QT_NO_KEYWORDS)
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wformat=2 -Wcast-qual)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-Wduplicated-cond -Wlogical-op)
endif()
if(PANEL_VIEW_WERROR)
    add_compile_options(-Werror)
endif()
if(PANEL_VIEW_SANITIZE)
    add_compile_options(-fsanitize=${PANEL_VIEW_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${PANEL_VIEW_SANITIZE})
endif()
