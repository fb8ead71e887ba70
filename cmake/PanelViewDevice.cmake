# The sample device tree, laid under the build folder as it is to lie on a device.
set(PANEL_VIEW_DEVICE_DIR "${PROJECT_BINARY_DIR}/device")

# panel_view_add_option_pack(FOLDER): builds the option language pack of a source folder named like its
# language id, into the device tree. PANEL_VIEW_OPTION_PACK_TARGET receives the target that does it.
function(panel_view_add_option_pack folder)
    string(REGEX REPLACE "/+$" "" folder "${folder}")
    cmake_path(GET folder FILENAME id)
    set(output "${CMAKE_CURRENT_BINARY_DIR}/packs/${id}")
    set(pack_directory "${PANEL_VIEW_DEVICE_DIR}/mnt/optlang/${id}")
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${folder}/*")
    file(GLOB catalogue_files CONFIGURE_DEPENDS
        "${PANEL_VIEW_CATALOGUE_DIR}/messages.tsv" "${PANEL_VIEW_CATALOGUE_DIR}/texts/*.tsv")
    # A build does not see by itself that one of its sources is gone.
    list(JOIN sources "\n" source_list)
    file(CONFIGURE OUTPUT "packs/${id}.txt" CONTENT "${source_list}\n" @ONLY)
    add_custom_command(OUTPUT "${output}/option_pack.cpp"
        COMMAND panel_resource_compiler pack --catalogue "${PANEL_VIEW_CATALOGUE_DIR}"
                --pack "${folder}" --output "${output}"
        COMMAND ${CMAKE_COMMAND} -E rm -rf "${pack_directory}/panel/keymap" "${pack_directory}/panel/optfonts"
        COMMAND ${CMAKE_COMMAND} -E copy_directory "${output}/tree" "${pack_directory}"
        DEPENDS panel_resource_compiler ${sources} "${CMAKE_CURRENT_BINARY_DIR}/packs/${id}.txt" ${catalogue_files}
        COMMENT "Compiling option language pack ${id}" VERBATIM)
    add_library(option_pack_${id} MODULE "${output}/option_pack.cpp")
    set_target_properties(option_pack_${id} PROPERTIES
        PREFIX "" OUTPUT_NAME libOptLang LIBRARY_OUTPUT_DIRECTORY "${pack_directory}/panel/liboptlang")
    target_link_libraries(option_pack_${id} PRIVATE panel_view_warnings)
    set(PANEL_VIEW_OPTION_PACK_TARGET option_pack_${id} PARENT_SCOPE)
endfunction()
