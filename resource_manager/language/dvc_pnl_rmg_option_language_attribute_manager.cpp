#include "dvc_pnl_rmg_option_language_attribute_manager.h"

#include "dvc_pnl_rmg_font_link.h"
#include "dvc_pnl_rmg_property.h"
#include "dvc_pnl_rmg_setting_id.h"
#include "dvc_pnl_utl_toolkit.h"
#include "file_guard.h"
#include "osw.h"
#include "settings_store.h"

#include <QApplication>
#include <QFile>
#include <QStringList>
#include <QTextStream>

#include <dirent.h>
#include <sys/stat.h>

#include <memory>

namespace velarion {

namespace {

constexpr std::size_t FONT_FILE_EXT_LENGTH = 4;
constexpr char DIRECTION_KEY[] = "il_ae";
constexpr char LEFT_TO_RIGHT_VALUE[] = "1";

/** Looks a pack function up by name; null when the platform leaves no address. */
template <typename FUNCTION> FUNCTION get_pack_function(void* library, const char* name) {
    void* address = nullptr;
    emwOSWGetProcAddress(library, name, &address);
    return reinterpret_cast<FUNCTION>(address);
}

bool is_regular_file(const std::string& path) {
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

/** Letters are folded as ASCII, whatever the process's locale. */
char to_ascii_upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool is_font_file_name(const std::string& name) {
    if (name.size() <= FONT_FILE_EXT_LENGTH) {
        return false;
    }
    std::string extension = name.substr(name.size() - FONT_FILE_EXT_LENGTH);
    for (char& c : extension) {
        c = to_ascii_upper(c);
    }
    return extension == dvc_pnl_rmg_option_language_attribute_manager::FONT_FILE_EXT;
}

bool is_right_to_left_line(const QString& line) {
    const QStringList fields = line.split(QLatin1Char('='));
    if (fields.at(0) != QLatin1String(DIRECTION_KEY)) {
        return false;
    }
    return fields.size() < 2 || fields.at(1) != QLatin1String(LEFT_TO_RIGHT_VALUE);
}

} // namespace

const std::uint32_t dvc_pnl_rmg_option_language_attribute_manager::OPTION_LANGUAGE_MEMBER[5] = {
    0x85024260, 0x85024288, 0x850242B0, 0x850242D8, 0x85024300,
};
const int dvc_pnl_rmg_option_language_attribute_manager::OPTION_LANGUAGE_MEMBER_NUM = 5;
const std::string dvc_pnl_rmg_option_language_attribute_manager::OPT_BASE_PATH = "/mnt/optlang/";
const std::string dvc_pnl_rmg_option_language_attribute_manager::NAME_LIB_OPT_LANG =
    "panel/liboptlang/libOptLang.so";
const std::string dvc_pnl_rmg_option_language_attribute_manager::OPT_FONTS_PATH = "panel/optfonts/";
const std::string dvc_pnl_rmg_option_language_attribute_manager::TMP_FONTS_PATH = "/tmp/fonts/";
const std::string dvc_pnl_rmg_option_language_attribute_manager::KEYMAP_FILE_PATH = "panel/keymap/";
const std::string dvc_pnl_rmg_option_language_attribute_manager::LANG_INFO_FILENAME = "lang_info.txt";
const std::string dvc_pnl_rmg_option_language_attribute_manager::PROHIBITION_INFO_FILENAME = "proh_info.txt";
const std::string dvc_pnl_rmg_option_language_attribute_manager::OPT_ATTRIBUTE_FILE =
    "panel/attr/opt_attribute.txt";
const char* const dvc_pnl_rmg_option_language_attribute_manager::FONT_FILE_EXT = ".TTF";
const char* const dvc_pnl_rmg_option_language_attribute_manager::SYMBOL_IS_VALID_OPT_LANG =
    "isValidOptionLanguage";
const char* const dvc_pnl_rmg_option_language_attribute_manager::SYMBOL_GET_OPT_MESSAGE = "optionMessage";
const char* const dvc_pnl_rmg_option_language_attribute_manager::SYMBOL_GET_OPT_FONT_FAMILY =
    "optionFontFamily";

dvc_pnl_rmg_option_language_attribute_manager::dvc_pnl_rmg_option_language_attribute_manager() {
    dvc_pnl_rmg_initialize_option_language();
    for (const auto& entry : language_path_map_) {
        std::string directory = entry.second + OPT_FONTS_PATH;
        make_link_for_fonts(directory);
    }
}

void dvc_pnl_rmg_option_language_attribute_manager::dvc_pnl_rmg_initialize_option_language() {
    valid_function_map_.clear();
    message_function_map_.clear();
    font_family_function_map_.clear();
    language_number_map_.clear();
    language_path_map_.clear();
    for (int slot = 0; slot < OPTION_LANGUAGE_MEMBER_NUM; ++slot) {
        std::uint16_t language_id = 0;
        if (ent_set_get_status(SETTING_GROUP, OPTION_LANGUAGE_MEMBER[slot], &language_id) != 0 ||
            language_id == DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_UNSET) {
            continue;
        }
        const std::string directory = OPT_BASE_PATH + std::to_string(language_id) + "/";
        language_number_map_[language_id] = slot + 1;
        language_path_map_[language_id] = directory;
        load_pack(slot, directory);
    }
}

void dvc_pnl_rmg_option_language_attribute_manager::load_pack(int slot, const std::string& directory) {
    const std::string path = directory + NAME_LIB_OPT_LANG;
    void* library = nullptr;
    if (!is_safe_to_load(path.c_str()) || emwOSWLoadLibrary(&library, path.c_str()) != 0 || !library) {
        return;
    }
    valid_function_map_[slot] = get_pack_function<VALID_FUNCTION>(library, SYMBOL_IS_VALID_OPT_LANG);
    message_function_map_[slot] = get_pack_function<MESSAGE_FUNCTION>(library, SYMBOL_GET_OPT_MESSAGE);
    font_family_function_map_[slot] =
        get_pack_function<FONT_FAMILY_FUNCTION>(library, SYMBOL_GET_OPT_FONT_FAMILY);
}

void dvc_pnl_rmg_option_language_attribute_manager::make_link_for_fonts(std::string& directory) {
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(opendir(directory.c_str()), closedir);
    if (!listing) {
        return;
    }
    // "." and ".." are no regular files, so the test below leaves them out too.
    while (const dirent* entry = readdir(listing.get())) {
        const std::string name = entry->d_name;
        const std::string path = directory + name;
        if (is_regular_file(path) && is_font_file_name(name)) {
            dvc_pnl_rmg_make_font_link(path, TMP_FONTS_PATH, name);
        }
    }
}

bool dvc_pnl_rmg_option_language_attribute_manager::dvc_pnl_rmg_is_valid_option_language(int language_id) {
    return language_number_map_.count(language_id) != 0;
}

void dvc_pnl_rmg_option_language_attribute_manager::dvc_pnl_rmg_get_option_language_id_array(
    std::vector<int>& ids) {
    for (const auto& entry : language_number_map_) {
        ids.push_back(entry.first);
    }
}

bool dvc_pnl_rmg_option_language_attribute_manager::dvc_pnl_rmg_convert_opt_lang_no_to_language_id(
    int number, int& language_id) {
    for (const auto& entry : language_number_map_) {
        if (entry.second == number) {
            language_id = entry.first;
            return true;
        }
    }
    return false;
}

bool dvc_pnl_rmg_option_language_attribute_manager::get_slot_index(int language_id, int& slot) const {
    const auto entry = language_number_map_.find(language_id);
    if (entry == language_number_map_.end()) {
        return false;
    }
    slot = entry->second - 1;
    return true;
}

const char* dvc_pnl_rmg_option_language_attribute_manager::dvc_pnl_rmg_get_option_message(int row,
                                                                                          int language_id) {
    int slot = 0;
    if (!get_slot_index(language_id, slot)) {
        return nullptr;
    }
    const MESSAGE_FUNCTION function = message_function_map_[slot];
    return !function ? nullptr : function(row, language_id);
}

const char*
dvc_pnl_rmg_option_language_attribute_manager::dvc_pnl_rmg_get_option_font_family(int language_id) {
    int slot = 0;
    if (!get_slot_index(language_id, slot)) {
        return nullptr;
    }
    const FONT_FAMILY_FUNCTION function = font_family_function_map_[slot];
    return !function ? nullptr : function(0, language_id);
}

QFont dvc_pnl_rmg_option_language_attribute_manager::dvc_pnl_rmg_get_font(int language_id) {
    const char* family = dvc_pnl_rmg_get_option_font_family(language_id);
    if (!family) {
        return QApplication::font();
    }
    return QFont(dvc_pnl_utl_from_8bit(family), -1, -1, false);
}

void dvc_pnl_rmg_option_language_attribute_manager::get_option_language_path(int language_id,
                                                                             std::string& path) {
    const auto entry = language_path_map_.find(language_id);
    path = entry == language_path_map_.end() ? std::string() : entry->second;
}

int dvc_pnl_rmg_option_language_attribute_manager::get_option_language_layout_direction(int language_id) {
    std::string directory;
    get_option_language_path(language_id, directory);
    if (directory.empty()) {
        return 1;
    }
    const std::string path = directory + OPT_ATTRIBUTE_FILE;
    QFile file(dvc_pnl_utl_from_8bit(path.c_str()));
    if (is_special_file(path.c_str()) || !file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        return 1;
    }
    QTextStream lines(&file);
    while (!lines.atEnd()) {
        if (is_right_to_left_line(lines.readLine())) {
            return 0;
        }
    }
    return 1;
}

void dvc_pnl_rmg_option_language_attribute_manager::get_keymap_file_param(int language_id, int& first,
                                                                          int& second, std::string& path) {
    first = 0;
    second = 0;
    const auto entry = language_path_map_.find(language_id);
    if (entry != language_path_map_.end()) {
        path = entry->second + KEYMAP_FILE_PATH + path;
    }
}

void dvc_pnl_rmg_option_language_attribute_manager::get_language_info_file_param(int language_id, int& first,
                                                                                 int& second,
                                                                                 std::string& path) {
    first = 0;
    second = 0;
    const auto entry = language_path_map_.find(language_id);
    if (entry != language_path_map_.end()) {
        path = entry->second + KEYMAP_FILE_PATH + LANG_INFO_FILENAME;
    }
}

void dvc_pnl_rmg_option_language_attribute_manager::get_prohibition_info_file_param(int language_id,
                                                                                    int& first, int& second,
                                                                                    std::string& path) {
    first = 0;
    second = 0;
    const auto entry = language_path_map_.find(language_id);
    if (entry != language_path_map_.end()) {
        path = entry->second + KEYMAP_FILE_PATH + PROHIBITION_INFO_FILENAME;
    }
}

} // namespace velarion
