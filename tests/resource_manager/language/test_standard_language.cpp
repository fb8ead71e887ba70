#include "scratch_device.h"

#include "dvc_pnl_rmg_message_table.h"
#include "dvc_pnl_rmg_standard_language_attribute_manager.h"

#include <QApplication>

#include <gtest/gtest.h>

#include <filesystem>

namespace fs = std::filesystem;

using standard_language = scratch_device;
using manager = velarion::dvc_pnl_rmg_standard_language_attribute_manager;

TEST_F(standard_language, index_and_texts) {
    manager languages;
    EXPECT_EQ(languages.dvc_pnl_rmg_get_standard_language_index(81), 0);
    EXPECT_EQ(languages.dvc_pnl_rmg_get_standard_language_index(7), 7);
    for (const int unknown : {0, -1, 44, 86, 999}) {
        EXPECT_EQ(languages.dvc_pnl_rmg_get_standard_language_index(unknown), -1) << unknown;
        EXPECT_EQ(languages.get_standard_message(2, unknown), nullptr) << unknown;
        EXPECT_EQ(languages.dvc_pnl_rmg_get_standard_font_family(unknown), nullptr) << unknown;
        EXPECT_EQ(languages.dvc_pnl_rmg_get_font(unknown), QApplication::font()) << unknown;
    }
    EXPECT_STREQ(languages.get_standard_message(2, 1), "Copy");
    EXPECT_STREQ(languages.get_standard_message(0, 81), "");
    for (const int row : {21999, 22000, 24999, -1}) {
        EXPECT_EQ(languages.dvc_pnl_rmg_get_standard_message(row, 1), nullptr) << row;
    }
    EXPECT_EQ(languages.dvc_pnl_rmg_get_font(81).family(), QString::fromLatin1("HeiseiKakuGothW5_JIS0213C"));
    EXPECT_EQ(languages.dvc_pnl_rmg_get_font(49).family(), QString::fromLatin1("Univers OTS"));
}

TEST_F(standard_language, file_paths_are_the_same_for_every_language) {
    manager languages;
    for (const int language : {81, 1, 86, -5}) {
        int first = 7;
        int second = 7;
        std::string path = "abc";
        languages.get_keymap_file_param(language, first, second, path);
        EXPECT_EQ(path, "/usr/local/vuk_plp/lib/keydata/abc");
        EXPECT_EQ(first, 0);
        EXPECT_EQ(second, 0);
        languages.get_language_info_file_param(language, first, second, path);
        EXPECT_EQ(path, "/usr/local/vuk_plp/lib/keydata/lang_info.txt");
        languages.get_prohibition_info_file_param(language, first, second, path);
        EXPECT_EQ(path, "/usr/local/vuk_plp/lib/keydata/proh_info.txt");
    }
}

TEST_F(standard_language, construction_links_the_two_fixed_fonts_again_and_again) {
    for (int round = 0; round < 2; ++round) {
        manager languages;
        EXPECT_EQ(fs::read_symlink("/tmp/fonts/UniversOTS_ArabicHebrew.ttf"),
                  "/usr/local/vuk_plp/lib/qt/lib/stdfonts/UniversOTS_ArabicHebrew.ttf");
        EXPECT_EQ(fs::read_symlink("/tmp/fonts/HeiseiKakuGothW5_213_C.ttf"),
                  "/usr/local/vuk_plp/lib/qt/lib/stdfonts/HeiseiKakuGothW5_213_C.ttf");
        EXPECT_EQ(std::distance(fs::directory_iterator("/tmp/fonts"), fs::directory_iterator()), 2);
    }
}
