#include "dvc_pnl_rmg_language_resource_xml_handler.h"

#include "dvc_pnl_rmg_xml_parameter.h"

namespace velarion {

dvc_pnl_rmg_language_resource_xml_handler::dvc_pnl_rmg_language_resource_xml_handler(
    dvc_pnl_rmg_xml_parameter* parameter)
    : parameter_(parameter) {}

dvc_pnl_rmg_language_resource_xml_handler::~dvc_pnl_rmg_language_resource_xml_handler() {}

int dvc_pnl_rmg_language_resource_xml_handler::dvc_pnl_utl_start_element(const std::string& /*name*/) {
    return 1;
}

int dvc_pnl_rmg_language_resource_xml_handler::dvc_pnl_utl_end_element(const std::string& name,
                                                                       const std::string& text) {
    parameter_->dvc_pnl_rmg_xml_end_callback(name, text);
    return 1;
}

} // namespace velarion
