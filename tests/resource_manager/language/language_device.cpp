#include "language_device.h"

#include "dvc_pnl_rmg_option_language_attribute_manager.h"

const char PACK_TEXT[] = "\xE5\xA4\x8D\xE5\x8D\xB0";

namespace {

const char* get_option_message(long row, int) {
    return row == 2 ? PACK_TEXT : nullptr;
}

const char* get_option_font_family(int number, int) {
    return number == 0 ? "Pack Sans" : nullptr;
}

} // namespace

void language_device::TearDown() {
    resource::dvc_pnl_rmg_delete_instance();
    scratch_tree::TearDown();
}

void language_device::set_slot(int slot, std::uint16_t language_id) {
    set_item(velarion::dvc_pnl_rmg_option_language_attribute_manager::OPTION_LANGUAGE_MEMBER[slot - 1],
             language_id);
}

void language_device::install_pack(int language_id) {
    const std::string library =
        "/mnt/optlang/" + std::to_string(language_id) + "/panel/liboptlang/libOptLang.so";
    platform_.add_symbol(library, "optionMessage", &get_option_message);
    platform_.add_symbol(library, "optionFontFamily", &get_option_font_family);
}
