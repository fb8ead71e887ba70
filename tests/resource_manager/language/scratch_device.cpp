#include "scratch_device.h"

#include "dvc_pnl_rmg_option_language_attribute_manager.h"
#include "dvc_pnl_rmg_setting_id.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;
using manager = velarion::dvc_pnl_rmg_option_language_attribute_manager;

const char PACK_TEXT[] = "\xE5\xA4\x8D\xE5\x8D\xB0";

namespace {

const char* const DEVICE_FOLDERS[] = {"/mnt/optlang", "/mnt/sheetext", "/tmp/fonts"};

int is_valid_option_language(int) {
    return 1;
}

const char* get_option_message(long row, int) {
    return row == 2 ? PACK_TEXT : nullptr;
}

const char* get_option_font_family(int number, int) {
    return number == 0 ? "Pack Sans" : nullptr;
}

void empty_device() {
    for (const char* folder : DEVICE_FOLDERS) {
        if (fs::exists(folder)) {
            for (const auto& entry : fs::directory_iterator(folder)) {
                fs::remove_all(entry.path());
            }
        }
    }
}

} // namespace

void scratch_device::SetUp() {
    if (std::getenv("PANEL_DEVICE_SCRATCH") == nullptr) {
        FAIL() << "run this test through scripts/device-shell --scratch";
    }
    platform_.reset();
    unsetenv("TEST_ICON_MESSAGE");
    empty_device();
}

void scratch_device::TearDown() {
    platform_.reset();
}

void scratch_device::write_file(const std::string& path, const std::string& contents) {
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream file(path, std::ios::binary);
    file << contents;
    ASSERT_TRUE(file.flush()) << path;
}

void scratch_device::set_panel_language(std::uint16_t language_id) {
    platform_.set_setting(velarion::SETTING_GROUP, velarion::SETTING_PANEL_LANGUAGE, 16, language_id);
}

void scratch_device::set_option_language(std::uint16_t language_id) {
    platform_.set_setting(velarion::SETTING_GROUP, velarion::SETTING_PANEL_OPTION_LANGUAGE, 16, language_id);
}

void scratch_device::set_slot(int slot, std::uint16_t language_id) {
    platform_.set_setting(velarion::SETTING_GROUP, manager::OPTION_LANGUAGE_MEMBER[slot - 1], 16,
                          language_id);
}

void scratch_device::install_pack(int language_id) {
    const std::string library =
        manager::OPT_BASE_PATH + std::to_string(language_id) + "/" + manager::NAME_LIB_OPT_LANG;
    platform_.add_symbol(library, manager::SYMBOL_IS_VALID_OPT_LANG, &is_valid_option_language);
    platform_.add_symbol(library, manager::SYMBOL_GET_OPT_MESSAGE, &get_option_message);
    platform_.add_symbol(library, manager::SYMBOL_GET_OPT_FONT_FAMILY, &get_option_font_family);
}
