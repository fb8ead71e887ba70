#include "scratch_device.h"

#include "dvc_pnl_rmg_option_language_attribute_manager.h"

#include <QApplication>

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

namespace fs = std::filesystem;

using manager = velarion::dvc_pnl_rmg_option_language_attribute_manager;

namespace {

class option_language : public scratch_device {
protected:
    void SetUp() override {
        scratch_device::SetUp();
        if (!HasFatalFailure()) {
            fs::create_directories("/tmp/fonts");
        }
    }

    /** 0 when no language has the number. */
    static int language_of_number(manager& packs, int number) {
        int language_id = 0;
        return packs.dvc_pnl_rmg_convert_opt_lang_no_to_language_id(number, language_id) ? language_id : 0;
    }

    static std::set<std::string> font_links() {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator("/tmp/fonts")) {
            names.insert(entry.path().filename().string());
        }
        return names;
    }
};

} // namespace

TEST_F(option_language, slots_name_the_languages) {
    const struct {
        const char* name;
        std::uint16_t slots[5];
        std::vector<int> ids;
        int language_of_number[5];
    } rows[] = {
        {"empty", {0, 0, 0, 0, 0}, {}, {0, 0, 0, 0, 0}},
        {"gaps", {0, 886, 0, 86, 0}, {86, 886}, {0, 886, 0, 86, 0}},
        {"a later slot wins", {86, 0, 86, 7, 65535}, {7, 86, 65535}, {0, 0, 86, 7, 65535}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        for (int slot = 1; slot <= 5; ++slot) {
            set_slot(slot, row.slots[slot - 1]);
        }
        manager packs;
        std::vector<int> ids = {-1};
        packs.dvc_pnl_rmg_get_option_language_id_array(ids);
        std::vector<int> expected = {-1}; // what the vector held stays
        expected.insert(expected.end(), row.ids.begin(), row.ids.end());
        EXPECT_EQ(ids, expected);
        for (int number = 1; number <= 5; ++number) {
            EXPECT_EQ(language_of_number(packs, number), row.language_of_number[number - 1]) << number;
        }
        EXPECT_EQ(language_of_number(packs, 0), 0);
        EXPECT_FALSE(packs.dvc_pnl_rmg_is_valid_option_language(0));
    }
}

TEST_F(option_language, a_slot_that_cannot_be_read_is_skipped_and_the_rest_is_read) {
    set_slot(1, 86);
    platform_.fail_setting(0x04050300, manager::OPTION_LANGUAGE_MEMBER[1]);
    set_slot(3, 886);
    manager packs;
    EXPECT_EQ(language_of_number(packs, 1), 86);
    EXPECT_EQ(language_of_number(packs, 3), 886);
}

TEST_F(option_language, texts_and_font_come_from_the_pack) {
    set_slot(2, 86);
    install_pack(86);
    manager packs;
    EXPECT_STREQ(packs.dvc_pnl_rmg_get_option_message(2, 86), PACK_TEXT);
    EXPECT_EQ(packs.dvc_pnl_rmg_get_option_message(3, 86), nullptr);
    EXPECT_EQ(packs.dvc_pnl_rmg_get_option_message(2, 886), nullptr);
    EXPECT_STREQ(packs.dvc_pnl_rmg_get_option_font_family(86), "Pack Sans");
    EXPECT_EQ(packs.dvc_pnl_rmg_get_font(86).family(), QString::fromLatin1("Pack Sans"));
    const std::vector<FAKE_CALL> lookups = platform_.calls_of("emwOSWGetProcAddress");
    ASSERT_EQ(lookups.size(), 3U);
    EXPECT_EQ(lookups[0].text, "isValidOptionLanguage");
    EXPECT_EQ(lookups[1].text, "optionMessage");
    EXPECT_EQ(lookups[2].text, "optionFontFamily");
}

TEST_F(option_language, a_pack_that_does_not_load_leaves_a_valid_language_without_texts) {
    const std::string library = "/mnt/optlang/86/panel/liboptlang/libOptLang.so";
    const struct {
        const char* name;
        bool is_there;
        int result;
        bool has_handle;
    } rows[] = {
        {"missing", false, 0, true},
        {"fails with a handle", true, 5, true},
        {"null handle without a failure", true, 0, false},
        {"no symbols", true, 0, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        platform_.reset();
        set_slot(4, 86);
        if (row.is_there) {
            platform_.add_library(library, row.result, row.has_handle);
        }
        manager packs;
        const bool is_loaded = row.is_there && row.result == 0 && row.has_handle;
        EXPECT_EQ(platform_.count("emwOSWGetProcAddress"), is_loaded ? 3U : 0U);
        EXPECT_TRUE(packs.dvc_pnl_rmg_is_valid_option_language(86));
        EXPECT_EQ(packs.dvc_pnl_rmg_get_option_message(2, 86), nullptr);
        EXPECT_EQ(packs.dvc_pnl_rmg_get_option_font_family(86), nullptr);
        EXPECT_EQ(packs.dvc_pnl_rmg_get_font(86), QApplication::font());
        std::string path;
        packs.get_option_language_path(86, path);
        EXPECT_EQ(path, "/mnt/optlang/86/");
    }
}

TEST_F(option_language, initialising_again_follows_the_slots_and_links_no_fonts) {
    set_slot(1, 86);
    install_pack(86);
    manager packs;
    write_file("/mnt/optlang/886/panel/optfonts/later.ttf", "font");
    set_slot(1, 886);
    packs.dvc_pnl_rmg_initialize_option_language();
    EXPECT_FALSE(packs.dvc_pnl_rmg_is_valid_option_language(86));
    EXPECT_TRUE(packs.dvc_pnl_rmg_is_valid_option_language(886));
    EXPECT_EQ(packs.dvc_pnl_rmg_get_option_message(2, 886), nullptr); // the old pack's functions are gone
    EXPECT_TRUE(font_links().empty());
}

TEST_F(option_language, file_paths) {
    set_slot(1, 86);
    manager packs;
    const struct {
        int language_id;
        const char* keymap;
        const char* information;
        const char* prohibition;
    } rows[] = {
        {86, "/mnt/optlang/86/panel/keymap/kb.txt", "/mnt/optlang/86/panel/keymap/lang_info.txt",
         "/mnt/optlang/86/panel/keymap/proh_info.txt"},
        {886, "kb.txt", "kb.txt", "kb.txt"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.language_id);
        int first = 7;
        int second = 7;
        std::string path = "kb.txt";
        packs.get_keymap_file_param(row.language_id, first, second, path);
        EXPECT_EQ(path, row.keymap);
        EXPECT_EQ(first, 0);
        EXPECT_EQ(second, 0);
        path = "kb.txt";
        packs.get_language_info_file_param(row.language_id, first, second, path);
        EXPECT_EQ(path, row.information);
        path = "kb.txt";
        packs.get_prohibition_info_file_param(row.language_id, first, second, path);
        EXPECT_EQ(path, row.prohibition);
    }
    std::string path = "kept?";
    packs.get_option_language_path(886, path);
    EXPECT_EQ(path, "");
}

TEST_F(option_language, direction_follows_the_attribute_file) {
    set_slot(1, 972);
    manager packs;
    EXPECT_EQ(packs.get_option_language_layout_direction(972), 1) << "no file";
    EXPECT_EQ(packs.get_option_language_layout_direction(86), 1) << "no such language";
    const struct {
        const char* contents;
        int direction;
    } rows[] = {
        {"", 1},
        {"il_ae=1\n", 1},
        {"other=0\n", 1},
        {"il_ae=0\n", 0},
        {"il_ae=0", 0},
        {"il_ae=\n", 0},
        {"il_ae\n", 0},
        {"il_ae=1=x\n", 1},
        {"il_ae=0=1\n", 0},
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

TEST_F(option_language, font_files_are_linked_by_name) {
    const std::string fonts = "/mnt/optlang/86/panel/optfonts/";
    for (const char* name :
         {"A.TTF", "b.ttf", "c.otf", ".ttf", "$(touch harm) ;'.ttf", "f.ttf.bak", "g.tTf"}) {
        write_file(fonts + name, "font");
    }
    fs::create_directory(fonts + "d.ttf");
    fs::create_symlink("b.ttf", fonts + "e.ttf");
    fs::create_symlink("nowhere", fonts + "dangling.ttf");
    set_slot(1, 86);
    manager packs;
    const std::set<std::string> expected = {"A.TTF", "b.ttf", "e.ttf", "g.tTf", "$(touch harm) ;'.ttf"};
    EXPECT_EQ(font_links(), expected);
    EXPECT_EQ(fs::read_symlink("/tmp/fonts/e.ttf"), fonts + "e.ttf");
}

TEST_F(option_language, a_font_of_a_higher_language_replaces_one_of_the_same_name) {
    write_file("/mnt/optlang/86/panel/optfonts/sans.ttf", "font");
    write_file("/mnt/optlang/886/panel/optfonts/sans.ttf", "font");
    set_slot(1, 886);
    set_slot(2, 86);
    fs::create_symlink("/nowhere", "/tmp/fonts/sans.ttf");
    manager packs;
    EXPECT_EQ(fs::read_symlink("/tmp/fonts/sans.ttf"), "/mnt/optlang/886/panel/optfonts/sans.ttf");
    EXPECT_EQ(font_links().size(), 1U);
}
