#include "dvc_pnl_rmg_option_language_attribute_manager.h"
#include "dvc_pnl_rmg_standard_language_attribute_manager.h"
#include "language_device.h"

#include <QApplication>

#include <filesystem>
#include <set>

namespace fs = std::filesystem;
using option_manager = velarion::dvc_pnl_rmg_option_language_attribute_manager;
using standard_manager = velarion::dvc_pnl_rmg_standard_language_attribute_manager;

namespace {

using attribute_managers = language_device;

std::set<std::string> font_links() {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator("/tmp/fonts")) {
        names.insert(entry.path().filename().string());
    }
    return names;
}

} // namespace

TEST_F(attribute_managers, standard_rows_and_languages_have_bounds) {
    standard_manager languages;
    for (const int unknown : {0, -1, 44, 86, 999}) {
        EXPECT_EQ(languages.dvc_pnl_rmg_get_standard_language_index(unknown), -1) << unknown;
        EXPECT_EQ(languages.get_standard_message(2, unknown), nullptr) << unknown;
        EXPECT_EQ(languages.dvc_pnl_rmg_get_standard_font_family(unknown), nullptr) << unknown;
        EXPECT_EQ(languages.dvc_pnl_rmg_get_font(unknown), QApplication::font()) << unknown;
    }
    for (const int row : {21999, 22000, 24999, -1}) {
        EXPECT_EQ(languages.dvc_pnl_rmg_get_standard_message(row, 1), nullptr) << row;
    }
}

TEST_F(attribute_managers, the_two_fixed_fonts_are_linked_again_and_again) {
    fs::remove_all("/tmp/fonts");
    const std::string fonts = "/usr/local/vuk_plp/lib/qt/lib/stdfonts/";
    for (int round = 0; round < 2; ++round) {
        const standard_manager languages;
        EXPECT_EQ(font_links().size(), 2U);
        for (const std::string name : {"UniversOTS_ArabicHebrew.ttf", "HeiseiKakuGothW5_213_C.ttf"}) {
            EXPECT_EQ(fs::read_symlink("/tmp/fonts/" + name), fonts + name);
        }
    }
}

TEST_F(attribute_managers, slots_name_the_option_languages) {
    const std::uint16_t unreadable = 1;
    const struct {
        const char* name;
        std::uint16_t slots[5];
        std::vector<int> ids; // -1: what the vector held stays
        std::vector<int> language_of_number;
    } rows[] = {
        {"empty", {0, 0, 0, 0, 0}, {-1}, {0, 0, 0, 0, 0, 0}},
        {"gaps", {0, 886, 0, 86, 0}, {-1, 86, 886}, {0, 0, 886, 0, 86, 0}},
        {"a later slot wins", {86, 0, 86, 7, 65535}, {-1, 7, 86, 65535}, {0, 0, 0, 86, 7, 65535}},
        {"unreadable: skipped", {86, unreadable, 886, 0, 0}, {-1, 86, 886}, {0, 86, 0, 886, 0, 0}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        for (int slot = 1; slot <= 5; ++slot) {
            set_slot(slot, row.slots[slot - 1]);
            if (row.slots[slot - 1] == unreadable) {
                platform_.fail_setting(velarion::SETTING_GROUP,
                                       option_manager::OPTION_LANGUAGE_MEMBER[slot - 1]);
            }
        }
        option_manager packs;
        std::vector<int> ids = {-1};
        packs.dvc_pnl_rmg_get_option_language_id_array(ids);
        EXPECT_EQ(ids, row.ids);
        std::vector<int> language_of_number(6); // 0 stays when no language has the number
        for (int number = 0; number <= 5; ++number) {
            packs.dvc_pnl_rmg_convert_opt_lang_no_to_language_id(
                number, language_of_number[static_cast<std::size_t>(number)]);
        }
        EXPECT_EQ(language_of_number, row.language_of_number);
    }
}

TEST_F(attribute_managers, a_pack_that_does_not_load_leaves_a_valid_language_without_texts) {
    const struct {
        const char* name;
        bool is_there;
        int result;
        bool has_handle;
        std::vector<std::string> lookups;
    } rows[] = {
        {"missing", false, 0, true, {}},
        {"fails with a handle", true, 5, true, {}},
        {"null handle without a failure", true, 0, false, {}},
        {"no symbols", true, 0, true, {"isValidOptionLanguage", "optionMessage", "optionFontFamily"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        platform_.reset();
        set_slot(4, 86);
        if (row.is_there) {
            platform_.add_library("/mnt/optlang/86/panel/liboptlang/libOptLang.so", row.result,
                                  row.has_handle);
        }
        option_manager packs;
        std::vector<std::string> lookups;
        for (const FAKE_CALL& call : platform_.calls_of("emwOSWGetProcAddress")) {
            lookups.push_back(call.text);
        }
        EXPECT_EQ(lookups, row.lookups);
        EXPECT_TRUE(packs.dvc_pnl_rmg_is_valid_option_language(86));
        EXPECT_EQ(packs.dvc_pnl_rmg_get_option_message(2, 86), nullptr);
        EXPECT_EQ(packs.dvc_pnl_rmg_get_option_font_family(86), nullptr);
        EXPECT_EQ(packs.dvc_pnl_rmg_get_font(86), QApplication::font());
    }
}

TEST_F(attribute_managers, initialising_again_follows_the_slots_and_links_no_fonts) {
    fs::create_directories("/tmp/fonts");
    set_slot(1, 86);
    install_pack(86);
    option_manager packs;
    write_file("/mnt/optlang/886/panel/optfonts/later.ttf", "font");
    set_slot(1, 886);
    packs.dvc_pnl_rmg_initialize_option_language();
    EXPECT_FALSE(packs.dvc_pnl_rmg_is_valid_option_language(86));
    EXPECT_TRUE(packs.dvc_pnl_rmg_is_valid_option_language(886));
    EXPECT_EQ(packs.dvc_pnl_rmg_get_option_message(2, 886), nullptr); // the old pack's functions are gone
    EXPECT_TRUE(font_links().empty());
}

TEST_F(attribute_managers, an_unknown_option_language_has_no_folder) {
    option_manager packs;
    std::string folder = "old";
    packs.get_option_language_path(886, folder);
    EXPECT_EQ(folder, "");
    int first = 7;
    int second = 7;
    std::string path = "kb.txt"; // stays
    packs.get_keymap_file_param(886, first, second, path);
    packs.get_language_info_file_param(886, first, second, path);
    packs.get_prohibition_info_file_param(886, first, second, path);
    EXPECT_EQ(path, "kb.txt");
    EXPECT_EQ(first + second, 0);
    EXPECT_EQ(packs.dvc_pnl_rmg_get_option_message(2, 886), nullptr);
}

TEST_F(attribute_managers, direction_follows_the_attribute_file) {
    set_slot(1, 972);
    option_manager packs;
    EXPECT_EQ(packs.get_option_language_layout_direction(972), 1) << "no file";
    EXPECT_EQ(packs.get_option_language_layout_direction(86), 1) << "no such language";
    const struct {
        const char* contents;
        int direction;
    } rows[] = {
        {"", 1},
        {"il_ae=1\n", 1},
        {"il_ae=0\n", 0},
        {"il_ae=0", 0},
        {"il_ae=\n", 0},
        {"il_ae\n", 0},
        {"il_ae=1=x\n", 1},
        {"il_ae=1 \n", 0},
        {" il_ae=0\n", 1},
        {"IL_AE=0\n", 1},
        {"il_ae=1\r\n", 1},
        {"il_ae=1\nil_ae=0\r\n", 0},
        {"x=1\n\n=\nil_ae=1\n", 1},
    };
    for (const auto& row : rows) {
        write_file("/mnt/optlang/972/panel/attr/opt_attribute.txt", row.contents);
        EXPECT_EQ(packs.get_option_language_layout_direction(972), row.direction) << row.contents;
    }
}

TEST_F(attribute_managers, fonts_of_packs_are_linked_by_name_and_the_highest_language_wins) {
    const std::string low = "/mnt/optlang/86/panel/optfonts/";
    const std::string high = "/mnt/optlang/886/panel/optfonts/";
    for (const char* name :
         {"A.TTF", "b.ttf", "c.otf", ".ttf", "$(touch harm) ;'.ttf", "f.ttf.bak", "g.tTf"}) {
        write_file(low + name, "font");
    }
    write_file(high + "b.ttf", "font");
    fs::create_directory(low + "d.ttf");
    fs::create_symlink("b.ttf", low + "e.ttf");
    fs::create_symlink("nowhere", low + "dangling.ttf");
    fs::create_directories("/tmp/fonts");
    fs::create_symlink("/nowhere", "/tmp/fonts/b.ttf");
    set_slot(1, 886);
    set_slot(2, 86);
    const option_manager packs;
    const std::set<std::string> expected = {"A.TTF", "b.ttf", "e.ttf", "g.tTf", "$(touch harm) ;'.ttf"};
    EXPECT_EQ(font_links(), expected);
    EXPECT_EQ(fs::read_symlink("/tmp/fonts/b.ttf"), high + "b.ttf");
    EXPECT_EQ(fs::read_symlink("/tmp/fonts/e.ttf"), low + "e.ttf");
}
