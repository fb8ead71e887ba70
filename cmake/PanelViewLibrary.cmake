# libpanel_view_support.so, put together from the subsystems. Its platform symbols stay undefined: the
# host process brings the platform.
include(CheckLinkerFlag)
include(CMakePackageConfigHelpers)

add_library(panel_view_support SHARED)
set(subsystems panel_view_layout panel_view_language panel_view_tables)
foreach(subsystem IN LISTS subsystems)
    target_sources(panel_view_support PRIVATE $<TARGET_OBJECTS:${subsystem}>)
endforeach()
target_include_directories(panel_view_support PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/dvc/dvc_pnl/cmn_src>
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/dvc/dvc_pnl/cmn_src/view_layout>
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/resource_manager/language>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/panel_view_support>)
target_link_libraries(panel_view_support PUBLIC panel_platform_headers ${PANEL_VIEW_QT_TARGETS})
# A host compiled with -fPIE alone would get copies of the exported tables, 1.4 MB of them at each start.
target_compile_options(panel_view_support INTERFACE -fPIC)
set_target_properties(panel_view_support PROPERTIES
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR} EXPORT_NAME panel_view_support)

# Keeps the relocations of the text table's 176,000 pointers small; see docs/loading.md.
check_linker_flag(CXX "-Wl,-z,pack-relative-relocs" PANEL_VIEW_HAS_PACKED_RELOCATIONS)
if(PANEL_VIEW_HAS_PACKED_RELOCATIONS)
    target_link_options(panel_view_support PRIVATE "-Wl,-z,pack-relative-relocs")
endif()

install(TARGETS panel_view_support panel_platform_headers EXPORT panel_view_support_targets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
file(GLOB public_headers
    dvc/dvc_pnl/cmn_src/dvc_pnl_export.h
    dvc/dvc_pnl/cmn_src/view_layout/dvc_pnl_common_utility.h
    resource_manager/language/*.h
    platform/*.h)
install(FILES ${public_headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/panel_view_support)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/panel_view_support)
install(EXPORT panel_view_support_targets NAMESPACE panel_view_support:: DESTINATION ${package_folder})
configure_package_config_file(cmake/panel_view_support-config.cmake.in
    ${PROJECT_BINARY_DIR}/panel_view_support-config.cmake INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/panel_view_support-config-version.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/panel_view_support-config.cmake
    ${PROJECT_BINARY_DIR}/panel_view_support-config-version.cmake DESTINATION ${package_folder})
configure_file(cmake/panel_view_support.pc.in ${PROJECT_BINARY_DIR}/panel_view_support.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/panel_view_support.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
