# libpanel_view_support.so, whose objects and headers the subsystems have added, and how both libraries are installed.
# Its platform symbols stay undefined: the host process brings the platform.
include(CheckLinkerFlag)
include(CMakePackageConfigHelpers)

target_include_directories(panel_view_support PUBLIC
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/panel_view_support>)
target_link_libraries(panel_view_support
    PUBLIC panel_platform_headers ${PANEL_VIEW_QT_TARGETS} PRIVATE $<BUILD_INTERFACE:panel_view_options>)
# A host compiled with -fPIE alone would get copies of the exported tables, 1.4 MB of them at each start.
target_compile_options(panel_view_support INTERFACE -fPIC)
target_compile_features(panel_view_support PUBLIC cxx_std_17)
set_target_properties(panel_view_support PROPERTIES
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR} EXPORT_NAME panel_view_support)

# Keeps the relocations of the text table's 176,000 pointers small; see docs/loading.md.
check_linker_flag(CXX "-Wl,--fatal-warnings,-z,pack-relative-relocs" PANEL_VIEW_HAS_PACKED_RELOCATIONS)
if(PANEL_VIEW_HAS_PACKED_RELOCATIONS)
    target_link_options(panel_view_support PRIVATE "-Wl,-z,pack-relative-relocs")
endif()
# Calls inside the library are bound when it is linked: fewer names to look up at each start, and quicker calls.
target_link_options(panel_view_support PRIVATE "-Wl,-Bsymbolic-functions")

# Components: "library" and "platform" are what runs, "tools" the programs, "development" all else.
set(header_folder ${CMAKE_INSTALL_INCLUDEDIR}/panel_view_support)
install(TARGETS panel_view_support panel_platform_headers EXPORT panel_view_support_targets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
    FILE_SET HEADERS DESTINATION ${header_folder} COMPONENT development)
get_target_property(id_header panel_view_ids PANEL_VIEW_ID_HEADER)
install(FILES "${id_header}" DESTINATION ${header_folder} COMPONENT development)

if(PANEL_VIEW_QT EQUAL 5)
    set(PANEL_VIEW_QT_MINIMUM 5.15)
else()
    set(PANEL_VIEW_QT_MINIMUM 4.8)
endif()
string(REGEX REPLACE "Qt[45]::" "" PANEL_VIEW_QT_COMPONENTS "${PANEL_VIEW_QT_TARGETS}")
list(JOIN PANEL_VIEW_QT_COMPONENTS " " PANEL_VIEW_QT_COMPONENTS)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/panel_view_support)
install(EXPORT panel_view_support_targets NAMESPACE panel_view_support:: DESTINATION ${package_folder}
    COMPONENT development)
configure_package_config_file(cmake/panel_view_support-config.cmake.in
    ${PROJECT_BINARY_DIR}/panel_view_support-config.cmake INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/panel_view_support-config-version.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/panel_view_support-config.cmake
    ${PROJECT_BINARY_DIR}/panel_view_support-config-version.cmake DESTINATION ${package_folder}
    COMPONENT development)

# The pkg-config files find their prefix from where they lie, so that an installed tree may be moved.
set(PANEL_VIEW_PC_FOLDER ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH PANEL_VIEW_PC_TO_PREFIX /prefix/${PANEL_VIEW_PC_FOLDER} /prefix)
string(REGEX REPLACE "Qt4::|::" "" PANEL_VIEW_PC_REQUIRES "${PANEL_VIEW_QT_TARGETS}")
list(JOIN PANEL_VIEW_PC_REQUIRES " " PANEL_VIEW_PC_REQUIRES)
function(panel_view_install_pc name)
    configure_file(cmake/${name}.pc.in ${PROJECT_BINARY_DIR}/${name}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${PANEL_VIEW_PC_FOLDER} COMPONENT development)
endfunction()
panel_view_install_pc(panel_view_support)

if(TARGET panel_platform)
    set(platform_header_folder ${CMAKE_INSTALL_INCLUDEDIR}/panel_platform)
    target_include_directories(panel_platform
        INTERFACE $<INSTALL_INTERFACE:${header_folder}> $<INSTALL_INTERFACE:${platform_header_folder}>)
    install(TARGETS panel_platform EXPORT panel_platform_targets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT platform NAMELINK_COMPONENT development
        FILE_SET HEADERS DESTINATION ${platform_header_folder} COMPONENT development
        FILE_SET service_headers DESTINATION ${platform_header_folder} COMPONENT development)
    install(EXPORT panel_platform_targets NAMESPACE panel_view_support:: DESTINATION ${package_folder}
        COMPONENT development)
    panel_view_install_pc(panel_platform)
endif()
