# panel_view_add_tables(TARGET CATALOGUE)
#
# The compiled-in data as an object library: tables that panel_resource_compiler makes from a catalogue's folder. Needs
# no toolkit.
set(PANEL_VIEW_TABLES_SOURCE_DIR "${CMAKE_CURRENT_LIST_DIR}/..")

function(panel_view_add_tables target catalogue)
    set(tables_folder "${CMAKE_CURRENT_BINARY_DIR}/tables")
    set(table_sources "${tables_folder}/message_id_table.cpp" "${tables_folder}/message_text_table.cpp")
    file(GLOB catalogue_files CONFIGURE_DEPENDS "${catalogue}/messages.tsv" "${catalogue}/texts/*.tsv")
    add_custom_command(OUTPUT ${table_sources}
        COMMAND panel_resource_compiler message-tables --catalogue "${catalogue}" --output "${tables_folder}"
        DEPENDS panel_resource_compiler ${catalogue_files}
        COMMENT "Compiling the message catalogue ${catalogue}" VERBATIM)
    set(image_table_source "${tables_folder}/image_name_table.cpp")
    add_custom_command(OUTPUT "${image_table_source}"
        COMMAND panel_resource_compiler image-tables --catalogue "${catalogue}" --output "${tables_folder}"
        DEPENDS panel_resource_compiler "${catalogue}/images.tsv"
        COMMENT "Compiling the image list of ${catalogue}" VERBATIM)

    set(resource_manager "${PANEL_VIEW_TABLES_SOURCE_DIR}/resource_manager")
    add_library(${target} OBJECT ${table_sources} "${image_table_source}"
        "${resource_manager}/language/dvc_pnl_rmg_standard_language_table.cpp")
    target_include_directories(${target} PUBLIC "${resource_manager}/language" "${resource_manager}/image"
        "${PANEL_VIEW_TABLES_SOURCE_DIR}/dvc/dvc_pnl/cmn_src/common")
    # Constant data alone: nothing in it that a sanitizer could watch, and much that it would blow up.
    target_compile_options(${target} PRIVATE -g0 -Os)
    target_link_libraries(${target} PRIVATE panel_view_warnings)
endfunction()

# panel_view_add_ids(TARGET CATALOGUE)
#
# A header of constants for the ids of the catalogue's messages and images, panel_view_ids.h: whoever includes it links
# TARGET, which is an interface library.
function(panel_view_add_ids target catalogue)
    set(ids_folder "${CMAKE_CURRENT_BINARY_DIR}/ids")
    # The header stays untouched while it would not change, so that texts and pictures can without a new build.
    add_custom_command(OUTPUT "${ids_folder}/made" BYPRODUCTS "${ids_folder}/panel_view_ids.h"
        COMMAND panel_resource_compiler header --catalogue "${catalogue}" --output "${ids_folder}/panel_view_ids.h"
        COMMAND ${CMAKE_COMMAND} -E touch "${ids_folder}/made"
        DEPENDS panel_resource_compiler "${catalogue}/messages.tsv" "${catalogue}/images.tsv"
        COMMENT "Naming the ids of ${catalogue}" VERBATIM)
    add_custom_target(${target}_header ALL DEPENDS "${ids_folder}/made")
    add_library(${target} INTERFACE)
    target_include_directories(${target} INTERFACE "${ids_folder}")
    add_dependencies(${target} ${target}_header)
    set_target_properties(${target} PROPERTIES PANEL_VIEW_ID_HEADER "${ids_folder}/panel_view_ids.h")
endfunction()
