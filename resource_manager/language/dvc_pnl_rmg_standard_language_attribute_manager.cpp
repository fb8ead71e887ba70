#include "dvc_pnl_rmg_standard_language_attribute_manager.h"

#include "dvc_pnl_rmg_message_table.h"
#include "dvc_pnl_utl_toolkit.h"

#include <QApplication>

#include <cstdlib>

namespace velarion {

namespace {

constexpr const char* FONT_DIRECTORY_COMMANDS[] = {
    "mkdir /tmp/fonts",
    "ln -sf /usr/local/vuk_plp/lib/qt/lib/stdfonts/UniversOTS_ArabicHebrew.ttf /tmp/fonts",
    "ln -sf /usr/local/vuk_plp/lib/qt/lib/stdfonts/HeiseiKakuGothW5_213_C.ttf /tmp/fonts",
};

void run_ignoring_status(const char* command) {
    const int status = std::system(command); // NOLINT(cert-env33-c): the given commands are constants
    static_cast<void>(status);
}

} // namespace

const std::string dvc_pnl_rmg_standard_language_attribute_manager::BASE_PATH = "/usr/local/vuk_plp/";
const std::string dvc_pnl_rmg_standard_language_attribute_manager::KEYMAP_FILE_PATH = "lib/keydata/";
const std::string dvc_pnl_rmg_standard_language_attribute_manager::LANG_INFO_FILENAME = "lang_info.txt";
const std::string dvc_pnl_rmg_standard_language_attribute_manager::PROHIBITION_INFO_FILENAME =
    "proh_info.txt";

dvc_pnl_rmg_standard_language_attribute_manager::dvc_pnl_rmg_standard_language_attribute_manager() {
    for (const char* command : FONT_DIRECTORY_COMMANDS) {
        run_ignoring_status(command);
    }
}

int dvc_pnl_rmg_standard_language_attribute_manager::get_size_of_standard_language_id_table() {
    return DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT;
}

int dvc_pnl_rmg_standard_language_attribute_manager::dvc_pnl_rmg_get_standard_language_number() {
    return get_size_of_standard_language_id_table();
}

const int* dvc_pnl_rmg_standard_language_attribute_manager::get_standard_language_id_table() {
    return standard_language_id_table;
}

const int* dvc_pnl_rmg_standard_language_attribute_manager::dvc_pnl_rmg_get_standard_language_id_array() {
    return get_standard_language_id_table();
}

int dvc_pnl_rmg_standard_language_attribute_manager::dvc_pnl_rmg_get_standard_language_index(
    int language_id) {
    const int count = dvc_pnl_rmg_get_standard_language_number();
    for (int index = 0; index < count; ++index) {
        if (standard_language_id_table[index] == language_id) {
            return index;
        }
    }
    return -1;
}

const char* dvc_pnl_rmg_standard_language_attribute_manager::get_standard_message(int row, int language_id) {
    const int index = dvc_pnl_rmg_get_standard_language_index(language_id);
    if (index < 0 || index >= DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT) {
        return nullptr;
    }
    if (row < 0 || row >= DVC_PNL_RMG_STANDARD_MESSAGE_ROWS) {
        return nullptr;
    }
    return standard_language_message_table[row][index];
}

const char*
dvc_pnl_rmg_standard_language_attribute_manager::dvc_pnl_rmg_get_standard_message(int row, int language_id) {
    return get_standard_message(row, language_id);
}

const char* dvc_pnl_rmg_standard_language_attribute_manager::get_standard_font_family(int index) {
    return standard_font_family_table[index];
}

const char*
dvc_pnl_rmg_standard_language_attribute_manager::dvc_pnl_rmg_get_standard_font_family(int language_id) {
    const int index = dvc_pnl_rmg_get_standard_language_index(language_id);
    return index == -1 ? nullptr : get_standard_font_family(index);
}

QFont dvc_pnl_rmg_standard_language_attribute_manager::dvc_pnl_rmg_get_font(int language_id) {
    const char* family = dvc_pnl_rmg_get_standard_font_family(language_id);
    if (!family) {
        return QApplication::font();
    }
    return QFont(dvc_pnl_utl_from_8bit(family), -1, -1, false);
}

void dvc_pnl_rmg_standard_language_attribute_manager::get_keymap_file_param(int /*language_id*/, int& first,
                                                                            int& second, std::string& path) {
    first = 0;
    second = 0;
    path = BASE_PATH + KEYMAP_FILE_PATH + path;
}

void dvc_pnl_rmg_standard_language_attribute_manager::get_language_info_file_param(int /*language_id*/,
                                                                                   int& first, int& second,
                                                                                   std::string& path) {
    first = 0;
    second = 0;
    path = BASE_PATH + KEYMAP_FILE_PATH + LANG_INFO_FILENAME;
}

void dvc_pnl_rmg_standard_language_attribute_manager::get_prohibition_info_file_param(int /*language_id*/,
                                                                                      int& first, int& second,
                                                                                      std::string& path) {
    first = 0;
    second = 0;
    path = BASE_PATH + KEYMAP_FILE_PATH + PROHIBITION_INFO_FILENAME;
}

} // namespace velarion
