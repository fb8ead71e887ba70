#include "dvc_pnl_rmg_option_language_attribute_manager.h"
#include "dvc_pnl_rmg_property.h"
#include "dvc_pnl_rmg_standard_language_attribute_manager.h"
#include "language_device.h"

#include <QApplication>

#include <filesystem>
#include <set>

using namespace velarion;
namespace fs = std::filesystem;
using option_manager = dvc_pnl_rmg_option_language_attribute_manager;
using standard_manager = dvc_pnl_rmg_standard_language_attribute_manager;

namespace {

using attribute_managers = language_device;
using language_files = language_device;

const std::string STANDARD_KEYS = "/usr/local/vuk_plp/lib/keydata/";
const std::string PACK_KEYS = "/mnt/optlang/86/panel/keymap/";

std::set<std::string> font_links() {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator("/tmp/fonts")) {
        names.insert(entry.path().filename().string());
    }
    return names;
}

/** The path that an operation makes of "kb.txt"; both numbers must come out as 0. */
template <typename OPERATION, typename... ID> std::string path_of(OPERATION operation, ID... id) {
    int first = 7;
    int second = 7;
    std::string path = "kb.txt";
    (resource::dvc_pnl_rmg_create_instance()->*operation)(id..., first, second, path);
    EXPECT_EQ(first, 0);
    EXPECT_EQ(second, 0);
    return path;
}

} // namespace

TEST_F(attribute_managers, standard_rows_and_languages_have_bounds) {
    standard_manager languages;
    for (const int unknown : {0, -1, 44, 999}) {
        EXPECT_EQ(languages.dvc_pnl_rmg_get_standard_language_index(unknown), -1) << unknown;
        EXPECT_EQ(languages.get_standard_message(2, unknown), nullptr) << unknown;
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
    const struct {
        const char* name;
        std::uint16_t slots[5];
        std::vector<int> ids; // -1: what the vector held stays
        std::vector<int> language_of_number;
    } rows[] = {
        {"gaps", {0, 886, 0, 86, 0}, {-1, 86, 886}, {0, 0, 886, 0, 86, 0}},
        {"a later slot wins", {86, 0, 86, 7, 65535}, {-1, 7, 86, 65535}, {0, 0, 0, 86, 7, 65535}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        for (int slot = 1; slot <= 5; ++slot) {
            set_slot(slot, row.slots[slot - 1]);
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
        const char* language;
        int result;
        bool has_handle;
        std::size_t lookups;
    } rows[] = {
        {"missing", "886", 0, true, 0},
        {"fails with a handle", "86", 5, true, 0},
        {"null handle without a failure", "86", 0, false, 0},
        {"no symbols", "86", 0, true, 3},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        platform_.reset();
        set_slot(4, 86);
        platform_.add_library(std::string("/mnt/optlang/") + row.language + "/panel/liboptlang/libOptLang.so",
                              row.result, row.has_handle);
        option_manager packs;
        EXPECT_EQ(platform_.count("emwOSWGetProcAddress"), row.lookups);
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
    EXPECT_EQ(packs.dvc_pnl_rmg_get_option_message(2, 886), nullptr); // the old pack's functions are gone
    EXPECT_TRUE(font_links().empty());
}

TEST_F(attribute_managers, an_unknown_option_language_has_no_folder) {
    option_manager packs;
    std::string path = "old";
    packs.get_option_language_path(886, path);
    EXPECT_EQ(path, "");
    path = "kb.txt"; // stays
    int number = 7;
    packs.get_keymap_file_param(886, number, number, path);
    packs.get_language_info_file_param(886, number, number, path);
    packs.get_prohibition_info_file_param(886, number, number, path);
    EXPECT_EQ(path, "kb.txt");
}

TEST_F(attribute_managers, direction_follows_the_attribute_file) {
    set_slot(1, 972);
    option_manager packs;
    EXPECT_EQ(packs.get_option_language_layout_direction(972), 1) << "no file";
    const struct {
        const char* contents;
        int direction;
    } rows[] = {
        {"il_ae=0\n", 0},           {"il_ae=0", 0},   {"il_ae\n", 0},     {"il_ae=1 \n", 0},
        {" il_ae=0\n", 1},          {"IL_AE=0\n", 1}, {"il_ae=1\r\n", 1}, {"il_ae=1\nil_ae=0\r\n", 0},
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

TEST_F(language_files, fonts_of_standard_option_and_unknown_languages) {
    set_slot(1, 86);
    set_slot(2, 886);
    install_pack(86);
    resource& language = create();
    QApplication::setFont(QFont(QLatin1String("Application")));
    const struct {
        const char* name;
        int id;
        const char* font_name;
        const char* family;
    } rows[] = {
        {"standard", 81, "HeiseiKakuGothW5_JIS0213C", "HeiseiKakuGothW5_JIS0213C"},
        {"option", 86, "Pack Sans", "Pack Sans"},
        {"option without a pack", 886, nullptr, "Application"},
        {"unknown", 44, "Univers OTS", "Univers OTS"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_STREQ(language.dvc_pnl_rmg_get_font_name(row.id), row.font_name);
        EXPECT_EQ(language.dvc_pnl_rmg_get_font(row.id).family(), QString::fromLatin1(row.family));
    }
    language.dvc_pnl_rmg_set_preferred_language(999, 86);
    EXPECT_EQ(language.dvc_pnl_rmg_get_font().family(), QString::fromLatin1("Pack Sans"));
}

TEST_F(language_files, keyboard_files_follow_the_language_and_for_chinese_the_destination) {
    set_slot(1, 86);
    set_slot(2, 972);
    set_slot(3, 886);
    const struct {
        int id;
        std::uint32_t destination;
        std::string keymap_folder;
        std::string information_folder;
    } rows[] = {
        {44, 3, STANDARD_KEYS, STANDARD_KEYS},
        {972, 5, "/mnt/optlang/972/panel/keymap/", "/mnt/optlang/972/panel/keymap/"},
        {86, 3, PACK_KEYS, PACK_KEYS},
        {86, 5, STANDARD_KEYS, PACK_KEYS},
        {886, 5, STANDARD_KEYS, "/mnt/optlang/886/panel/keymap/"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.id) + " with destination " + std::to_string(row.destination));
        set_item(SETTING_DESTINATION, row.destination, 8);
        EXPECT_EQ(path_of(&resource::dvc_pnl_rmg_get_keymap_file_param, row.id),
                  row.keymap_folder + "kb.txt");
        EXPECT_EQ(path_of(&resource::dvc_pnl_rmg_get_language_info_file_param, row.id),
                  row.information_folder + "lang_info.txt");
        EXPECT_EQ(path_of(&resource::dvc_pnl_rmg_get_prohibition_info_file_param, row.id),
                  row.information_folder + "proh_info.txt");
    }
    EXPECT_EQ(path_of(&resource::dvc_pnl_rmg_get_static_char_file_param), STANDARD_KEYS + "kb.txt");
}

TEST_F(language_files, conversion_is_enabled_by_five_destinations) {
    resource& language = create();
    EXPECT_FALSE(language.dvc_pnl_rmg_is_convert_enable_by_destination()) << "cannot be read";
    for (std::uint32_t code = 0; code <= 255; ++code) {
        set_item(SETTING_DESTINATION, code, 8);
        const bool expected = code == 3 || code == 4 || (code >= 6 && code <= 8);
        EXPECT_EQ(language.dvc_pnl_rmg_is_convert_enable_by_destination(), expected) << code;
    }
}

TEST_F(language_files, an_attribute_is_set_by_exactly_yes) {
    set_item(SETTING_PANEL_LANGUAGE, 49);
    resource& language = create();
    int value = 7;
    EXPECT_FALSE(language.dvc_pnl_rmg_get_language_attribute(8, value));
    EXPECT_EQ(value, 0);
    const std::string cut_to_the_buffer(500, 'Y');
    for (const std::string& text : {std::string("YES"), std::string("YES "), cut_to_the_buffer}) {
        platform_.set_attribute(49, 3, text);
        EXPECT_TRUE(language.dvc_pnl_rmg_get_language_attribute(3, value)) << text;
        EXPECT_EQ(value, text == "YES" ? 1 : 0) << text;
    }
}

/** What the store's failures come out as is tested with the images, which share the access to it. */
TEST_F(language_files, a_data_file_is_stored_found_and_removed) {
    resource& language = create();
    int error = 4711;
    EXPECT_EQ(language.dvc_pnl_rmg_set_message_data("note", "a\0b", 3, error), DVC_PNL_RMG_RESULT_OK);
    std::string stored;
    EXPECT_TRUE(platform_.get_file(4, 33, "note", stored));
    EXPECT_EQ(stored, std::string("a\0b", 3));
    EXPECT_TRUE(language.dvc_pnl_rmg_is_exist_data_file("note", error));
    EXPECT_EQ(language.dvc_pnl_rmg_remove_data_file("note", error), DVC_PNL_RMG_RESULT_OK);
    EXPECT_EQ(error, 0);
    EXPECT_FALSE(language.dvc_pnl_rmg_is_exist_data_file("note", error));
    EXPECT_EQ(error, FAKE_FAILURE);
}
