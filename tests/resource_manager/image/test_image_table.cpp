#include "dvc_pnl_rmg_image_name_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <regex>
#include <set>
#include <string>

namespace {

const DVC_PNL_RMG_IMPL_IMAGE_NAME* const FIRST = dvc_pnl_rmg_impl_image_name_table;

const DVC_PNL_RMG_IMPL_IMAGE_NAME* end_of_images() {
    return FIRST + dvc_pnl_rmg_imple_image_name_table_size;
}

const DVC_PNL_RMG_IMPL_IMAGE_NAME* find(std::int32_t id) {
    return std::find_if(FIRST, end_of_images(), [id](const auto& image) { return image.image_id == id; });
}

bool begins_with(const std::string& text, const std::string& beginning) {
    return text.compare(0, beginning.size(), beginning) == 0;
}

} // namespace

TEST(image_table, is_searchable_and_has_the_numbering_of_the_device) {
    ASSERT_EQ(dvc_pnl_rmg_imple_image_name_table_size, 4549);
    int gaps = 0;
    for (const auto* image = FIRST + 1; image != end_of_images(); ++image) {
        const std::int32_t before = (image - 1)->image_id;
        ASSERT_LT(before, image->image_id) << image->image_name;
        gaps += image->image_id != before + 1 ? 1 : 0;
    }
    EXPECT_EQ(gaps, 35);
    EXPECT_EQ(FIRST->image_id, 2);
    EXPECT_EQ((end_of_images() - 1)->image_id, 4646);
    EXPECT_EQ(find(14), end_of_images());
}

TEST(image_table, holds_the_images_that_hosts_ask_for_by_number) {
    const DVC_PNL_RMG_IMPL_IMAGE_NAME rows[] = {
        {2, "ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_QUICK_SETUP", "ico_globalnavi_quick.svg"},
        {77, "ICON_CMN_OTHER_GLOBAL_NAVIGATION_ITEM_BACKGROUND", "d_gra_component_background_globalnavi.svg"},
        {84, "ICON_CMN_OTHER_QUICK_SETUP_ITEM_BACKGROUND", " "},
        {489, "ICON_CMN_OTHER_GLOBAL_NAVIGATION_LIST_BACKGROUND", "d_gra_component_list_globalnavi.svg"},
        {550, "ICON_NORMAL_OTHER_JOB_STATUS_PRINTING", "ico_status_printing.gif"},
        {1375, "ICON_HELP_OUTLINE_OPERATIONS_FOR_HOME_SCREEN_ICO_A", "gra_help_1_1.png"},
    };
    for (const auto& row : rows) {
        const auto* image = find(row.image_id);
        ASSERT_NE(image, end_of_images()) << row.image_id;
        EXPECT_STREQ(image->image_name, row.image_name);
        EXPECT_STREQ(image->file_name, row.file_name);
    }
    std::set<std::string> files;
    std::for_each(FIRST, end_of_images(), [&files](const auto& image) { files.insert(image.file_name); });
    for (const char* file :
         {"d_gra_component_background_keyboard_1.0_dark.svg", "ico_status_error_paperjam.svg",
          "gra_component_background_setting.svg", "gra_component_background_setting_i.svg",
          "il_remote_connect.svg", "RUR_a1_1.png", "du_l_01.png"}) {
        EXPECT_EQ(files.count(file), 1U) << file;
    }
}

TEST(image_table, names_are_unique_and_follow_the_scheme) {
    const std::regex scheme("ICON?_[A-Z]+(_[A-Z0-9]+)+");
    const std::string odd = "ICO_NORMAL_OTHER_WSD_SCAN_FROM_COMPUTER_WSD_WAITING";
    std::map<std::string, int> categories;
    std::set<std::string> names;
    for (const auto* image = FIRST; image != end_of_images(); ++image) {
        const std::string name = image->image_name;
        EXPECT_TRUE(std::regex_match(name, scheme)) << name;
        EXPECT_TRUE(names.insert(name).second) << name;
        ++categories[name == odd ? "ICO" : name.substr(5, name.find('_', 5) - 5)];
    }
    const std::map<std::string, int> expected = {
        {"ERROR", 1591}, {"NORMAL", 1454}, {"CMN", 956},  {"SWKB", 246}, {"HELP", 211},
        {"TONER", 44},   {"STAREA", 37},   {"NOTICE", 6}, {"LOGIN", 3},  {"ICO", 1}};
    EXPECT_EQ(categories, expected);
    EXPECT_EQ(names.count("ICON_STAREA_WIFI_ENABLE"), 1U);
}

TEST(image_table, files_are_shared_and_some_images_have_none) {
    std::map<std::string, int> endings;
    std::set<std::string> files;
    std::set<std::string> navigation;
    int darker_rows = 0;
    int navigation_rows = 0;
    for (const auto* image = FIRST; image != end_of_images(); ++image) {
        const std::string file = image->file_name;
        const bool is_blank = file == " " || file == "\xE3\x80\x80";
        ++endings[is_blank ? file : file.substr(file.rfind('.'))];
        if (!is_blank) {
            files.insert(file);
        }
        darker_rows += begins_with(file, "d_") ? 1 : 0;
        if (file.find("ico_globalnavi") != std::string::npos) {
            ++navigation_rows;
            navigation.insert(file);
        }
    }
    const std::map<std::string, int> expected = {
        {".png", 2267}, {".svg", 1606}, {".gif", 292}, {" ", 383}, {"\xE3\x80\x80", 1}};
    EXPECT_EQ(endings, expected);
    EXPECT_EQ(files.size(), 3350U);
    EXPECT_EQ(darker_rows, 274);
    EXPECT_EQ(navigation_rows, 32);
    EXPECT_EQ(navigation.size(), 30U);
}

TEST(image_table, toner_levels_between_share_a_picture) {
    std::map<std::string, std::set<std::string>> files; // by colour
    std::map<std::string, std::set<std::string>> files_between;
    for (const auto* image = FIRST; image != end_of_images(); ++image) {
        const std::string name = image->image_name;
        if (begins_with(name, "ICON_TONER_")) {
            const std::size_t level = name.find_first_of("0123456789");
            const std::string color = name.substr(11, level - 11);
            const int percent = std::stoi(name.substr(level));
            files[color].insert(image->file_name);
            if (percent >= 20 && percent <= 90) {
                files_between[color].insert(image->file_name);
            }
        }
    }
    EXPECT_EQ(files.size(), 4U);
    for (const auto& color : files) {
        EXPECT_EQ(color.second.size(), 4U) << color.first;
        EXPECT_EQ(files_between[color.first].size(), 1U) << color.first;
    }
}
