# Writes the unit of the service. program: its path below the prefix; source, binary: folders of the template and of
# the unit
get_filename_component(prefix "${CMAKE_INSTALL_PREFIX}" ABSOLUTE)
get_filename_component(PANEL_DEVICE_SERVICE "${program}" ABSOLUTE BASE_DIR "${prefix}")
foreach(special IN ITEMS "\\" "\"")
    string(REPLACE "${special}" "\\${special}" PANEL_DEVICE_SERVICE "${PANEL_DEVICE_SERVICE}")
endforeach()
string(REPLACE "%" "%%" PANEL_DEVICE_SERVICE "${PANEL_DEVICE_SERVICE}")
configure_file("${source}/panel_device_service.service.in" "${binary}/panel_device_service.service" @ONLY)
