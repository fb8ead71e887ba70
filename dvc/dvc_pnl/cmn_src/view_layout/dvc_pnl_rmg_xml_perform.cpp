#include "dvc_pnl_rmg_xml_perform.h"

namespace velarion {

namespace {

constexpr char STRING_ELEMENT[] = "string";
constexpr char NAME_ATTRIBUTE[] = "name";

} // namespace

dvc_pnl_rmg_xml_perform::dvc_pnl_rmg_xml_perform() {}

dvc_pnl_rmg_xml_perform::~dvc_pnl_rmg_xml_perform() {}

int dvc_pnl_rmg_xml_perform::dvc_pnl_rmg_start_element(const std::string& name,
                                                       const std::map<std::string, std::string>& attributes) {
    const auto attribute = attributes.find(NAME_ATTRIBUTE);
    if (name == STRING_ELEMENT && attribute != attributes.end()) {
        key_ = attribute->second;
    }
    return 1;
}

int dvc_pnl_rmg_xml_perform::dvc_pnl_rmg_end_element(const std::string& /*name*/, const std::string& text) {
    texts_.try_emplace(key_, text);
    return 1;
}

void dvc_pnl_rmg_xml_perform::setMessageID(std::string& message_id) {
    message_id_ = message_id;
}

void dvc_pnl_rmg_xml_perform::getMessage(std::string& message) {
    const auto text = texts_.find(message_id_);
    if (text != texts_.end()) {
        message = text->second;
    }
}

} // namespace velarion
