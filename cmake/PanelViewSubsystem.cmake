# panel_view_add_subsystem(NAME SOURCES FILE... [HEADERS FILE...] [LINKS TARGET...])
#
# A folder of libpanel_view_support.so as an object library that its unit tests can link alone. The library takes its
# objects, and installs HEADERS: what a host may include.
function(panel_view_add_subsystem name)
    cmake_parse_arguments(PARSE_ARGV 1 subsystem "" "" "SOURCES;HEADERS;LINKS")
    add_library(${name} OBJECT ${subsystem_SOURCES})
    target_include_directories(${name} PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}")
    target_link_libraries(${name} PUBLIC ${subsystem_LINKS} PRIVATE panel_view_options)
    target_compile_options(${name} PRIVATE -fno-semantic-interposition) # as the library binds its functions
    if(TARGET panel_view_support)
        target_sources(panel_view_support PRIVATE $<TARGET_OBJECTS:${name}>)
        panel_view_install_headers(panel_view_support ${subsystem_HEADERS})
    endif()
endfunction()

# panel_view_install_headers(TARGET FILE...): headers of this folder that are installed with a library.
function(panel_view_install_headers target)
    if(ARGN)
        target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS "${CMAKE_CURRENT_SOURCE_DIR}" FILES ${ARGN})
    endif()
endfunction()
