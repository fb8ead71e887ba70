#include "dvc_pnl_rmg_xml_parameter.h"

#include "dvc_pnl_rmg_xml_element.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace velarion {

namespace {

/** A long may be as narrow as an int or wider: the limits are an int's in both cases. */
int read_index(const std::string& text) {
    const long value = std::strtol(text.c_str(), nullptr, 10);
    const long least = std::numeric_limits<int>::min();
    const long most = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(value, least, most));
}

} // namespace

dvc_pnl_rmg_xml_parameter::dvc_pnl_rmg_xml_parameter()
    : message_index_(0) {}

void dvc_pnl_rmg_xml_parameter::dvc_pnl_rmg_xml_end_callback(const std::string& name,
                                                             const std::string& text) {
    using ELEMENT = DVC_PNL_RMG_XML_ELEMENT;
    if (name == ELEMENT::MESSAGE_DATA) {
        language_contents_.try_emplace(implementation_id_, message_index_);
    } else if (name == ELEMENT::IMPLEMENTATION_ID) {
        implementation_id_ = text;
    } else if (name == ELEMENT::MESSAGE_TABLE_INDEX) {
        message_index_ = read_index(text);
    } else if (name == ELEMENT::IMAGE_DATA) {
        image_contents_.try_emplace(implementation_filename_, image_filename_);
    } else if (name == ELEMENT::IMPLEMENTATION_FILENAME) {
        implementation_filename_ = text;
    } else if (name == ELEMENT::IMAGE_FILENAME) {
        image_filename_ = text;
    }
}

void dvc_pnl_rmg_xml_parameter::dvc_pnl_rmg_xml_set_language_contens(std::map<std::string, int>& contents) {
    contents = language_contents_;
}

void dvc_pnl_rmg_xml_parameter::dvc_pnl_rmg_xml_set_image_contens(
    std::map<std::string, std::string>& contents) {
    contents = image_contents_;
}

} // namespace velarion
