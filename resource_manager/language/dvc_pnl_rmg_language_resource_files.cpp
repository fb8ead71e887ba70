// Fonts, attributes, keyboard and language files, and data files of the language resource.
#include "dvc_pnl_rmg_language_resource.h"

#include "dvc_pnl_rmg_data_file_access.h"
#include "dvc_pnl_rmg_option_language_attribute_manager.h"
#include "dvc_pnl_rmg_property.h"
#include "dvc_pnl_rmg_setting_id.h"
#include "dvc_pnl_rmg_standard_language_attribute_manager.h"
#include "settings_store.h"

#include <cstring>

namespace velarion {

namespace {

constexpr int LANGUAGE_ID_SIMPLIFIED_CHINESE = 86;
constexpr int LANGUAGE_ID_TRADITIONAL_CHINESE = 886;
constexpr char ATTRIBUTE_SET[] = "YES";
constexpr unsigned int CONVERTING_DESTINATIONS = 0x1D8; // bit n: destination code n
constexpr unsigned int HIGHEST_CONVERTING_DESTINATION = 8;

} // namespace

QFont dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_font(int language_id) {
    if (dvc_pnl_rmg_get_standard_language_index(language_id) != -1) {
        return standard_language_manager_->dvc_pnl_rmg_get_font(language_id);
    }
    if (dvc_pnl_rmg_is_valid_option_language(language_id)) {
        return option_language_manager_->dvc_pnl_rmg_get_font(language_id);
    }
    return standard_language_manager_->dvc_pnl_rmg_get_font(DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_ENGLISH);
}

QFont dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_font() {
    return dvc_pnl_rmg_get_font(dvc_pnl_rmg_get_language_id());
}

const char* dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_font_name(int language_id) {
    if (dvc_pnl_rmg_get_standard_language_index(language_id) != -1) {
        return standard_language_manager_->dvc_pnl_rmg_get_standard_font_family(language_id);
    }
    if (dvc_pnl_rmg_is_valid_option_language(language_id)) {
        return dvc_pnl_rmg_get_option_font_family(language_id);
    }
    return standard_language_manager_->dvc_pnl_rmg_get_standard_font_family(
        DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_ENGLISH);
}

void dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_standard_font_family(int language_id,
                                                                         std::string& family) {
    const char* name = standard_language_manager_->dvc_pnl_rmg_get_standard_font_family(language_id);
    family = !name ? "" : name;
}

const char* dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_option_font_family(int language_id) {
    return option_language_manager_->dvc_pnl_rmg_get_option_font_family(language_id);
}

void dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_static_char_file_param(int& first, int& second,
                                                                           std::string& path) {
    standard_language_manager_->get_keymap_file_param(DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_ENGLISH, first,
                                                      second, path);
}

void dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_keymap_file_param(int language_id, int& first,
                                                                      int& second, std::string& path) {
    if (!dvc_pnl_rmg_is_valid_option_language(language_id)) {
        standard_language_manager_->get_keymap_file_param(language_id, first, second, path);
        return;
    }
    const bool is_chinese =
        language_id == LANGUAGE_ID_SIMPLIFIED_CHINESE || language_id == LANGUAGE_ID_TRADITIONAL_CHINESE;
    if (is_chinese && !dvc_pnl_rmg_is_convert_enable_by_destination()) {
        standard_language_manager_->get_keymap_file_param(DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_ENGLISH, first,
                                                          second, path);
        return;
    }
    option_language_manager_->get_keymap_file_param(language_id, first, second, path);
}

void dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_language_info_file_param(int language_id, int& first,
                                                                             int& second, std::string& path) {
    if (dvc_pnl_rmg_is_valid_option_language(language_id)) {
        option_language_manager_->get_language_info_file_param(language_id, first, second, path);
    } else {
        standard_language_manager_->get_language_info_file_param(language_id, first, second, path);
    }
}

void dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_prohibition_info_file_param(int language_id, int& first,
                                                                                int& second,
                                                                                std::string& path) {
    if (dvc_pnl_rmg_is_valid_option_language(language_id)) {
        option_language_manager_->get_prohibition_info_file_param(language_id, first, second, path);
    } else {
        standard_language_manager_->get_prohibition_info_file_param(language_id, first, second, path);
    }
}

bool dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_language_attribute(int language_id, int attribute,
                                                                       int& value) {
    char text[ENT_SET_MESSAGE_SIZE] = "";
    value = 0;
    if (ent_set_getmessage(language_id, attribute, text) != 0) {
        return false;
    }
    value = std::strcmp(text, ATTRIBUTE_SET) == 0 ? 1 : 0;
    return true;
}

bool dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_language_attribute(int attribute, int& value) {
    return dvc_pnl_rmg_get_language_attribute(dvc_pnl_rmg_get_language_id(), attribute, value);
}

bool dvc_pnl_rmg_language_resource::dvc_pnl_rmg_is_convert_enable_by_destination() {
    std::uint8_t destination = 0;
    ent_set_get_status(SETTING_GROUP, SETTING_DESTINATION, &destination);
    return destination <= HIGHEST_CONVERTING_DESTINATION &&
           ((CONVERTING_DESTINATIONS >> destination) & 1U) != 0;
}

int dvc_pnl_rmg_language_resource::dvc_pnl_rmg_set_message_data(const char* file_name, const char* data,
                                                                unsigned long size, int& error) {
    const dvc_pnl_rmg_data_file_access files(data_area_, data_group_);
    return files.write(file_name, reinterpret_cast<const unsigned char*>(data), size, error);
}

bool dvc_pnl_rmg_language_resource::dvc_pnl_rmg_is_exist_data_file(const char* file_name, int& error) {
    return dvc_pnl_rmg_data_file_access(data_area_, data_group_).exists(file_name, error);
}

int dvc_pnl_rmg_language_resource::dvc_pnl_rmg_remove_data_file(const char* file_name, int& error) {
    return dvc_pnl_rmg_data_file_access(data_area_, data_group_).remove(file_name, error);
}

int dvc_pnl_rmg_language_resource::dvc_pnl_rmg_set_machine_specific_path(const char* path, int& error) {
    error = 0;
    if (!path || *path == '\0') {
        return DVC_PNL_RMG_RESULT_NOT_FOUND;
    }
    machine_data_file_ = path;
    return DVC_PNL_RMG_RESULT_OK;
}

const char* dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_machine_data_file() {
    return machine_data_file_.c_str();
}

} // namespace velarion
