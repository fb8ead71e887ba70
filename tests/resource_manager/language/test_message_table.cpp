#include "dvc_pnl_rmg_message_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <regex>
#include <set>
#include <string>

namespace {

const int ROWS = DVC_PNL_RMG_STANDARD_MESSAGE_ROWS;
const int LANGUAGES = DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT;
const DVC_PNL_RMG_IMPL_MESSAGE* const FIRST = dvc_pnl_rmg_impl_message_table;

const DVC_PNL_RMG_IMPL_MESSAGE* end_of_messages() {
    return FIRST + dvc_pnl_rmg_imple_message_table_size;
}

/** How many of a row's cells hold a text that is not empty. */
int count_texts(int row) {
    const auto& cells = standard_language_message_table[row];
    return static_cast<int>(std::count_if(cells, cells + LANGUAGES,
                                          [](const char* text) { return text != nullptr && *text != '\0'; }));
}

} // namespace

TEST(message_id_table, is_searchable_and_has_the_numbering_of_the_device) {
    ASSERT_EQ(dvc_pnl_rmg_imple_message_table_size, 13733);
    int gaps = 0;
    for (const auto* message = FIRST + 1; message != end_of_messages(); ++message) {
        const std::int32_t before = (message - 1)->message_id;
        ASSERT_LT(before, message->message_id) << message->message_name;
        gaps += message->message_id != before + 1 ? 1 : 0;
    }
    EXPECT_EQ(gaps, 870);
    EXPECT_EQ(FIRST->message_id, 1);
    EXPECT_EQ((end_of_messages() - 1)->message_id, 31395);
    EXPECT_STREQ(FIRST[0].message_name, "MSG_NORMAL_TITLE_COPY");
    EXPECT_EQ(FIRST[0].message_table_index, 2);
    EXPECT_EQ(FIRST[1].message_id, 2);
    EXPECT_STREQ(FIRST[1].message_name, "MSG_NORMAL_OTHER_COPIES");
    EXPECT_EQ(FIRST[1].message_table_index, 3);
}

TEST(message_id_table, names_are_grouped_by_screen_area) {
    const std::regex plain("MSG_[A-Z0-9]+(_[A-Z0-9]+)*");
    const std::regex odd("MSG_[A-Z0-9]+_[A-Za-z0-9_.& -]+\t*");
    std::map<std::string, int> groups;
    std::map<std::string, int> uses;
    std::set<std::size_t> lengths;
    int odd_names = 0;
    for (const auto* message = FIRST; message != end_of_messages(); ++message) {
        const std::string name = message->message_name;
        if (!std::regex_match(name, plain)) {
            ++odd_names;
            EXPECT_TRUE(std::regex_match(name, odd)) << name;
        }
        ++groups[name.substr(4, name.find('_', 4) - 4)];
        ++uses[name];
        lengths.insert(name.size());
    }
    const std::map<std::string, int> expected = {
        {"NORMAL", 9203}, {"ERROR", 1666}, {"MNT", 1386},   {"BANNER", 713}, {"HELP", 228},
        {"STATUS", 204},  {"DIALOG", 134}, {"NOTICE", 102}, {"CMN", 61},     {"SWKB", 30},
        {"DYNAMIC", 4},   {"TITLE", 1},    {"VERSION", 1},
    };
    EXPECT_EQ(groups, expected);
    EXPECT_EQ(odd_names, 48);
    EXPECT_EQ(*lengths.begin(), 15U);
    EXPECT_EQ(*lengths.rbegin(), 93U);
    EXPECT_EQ(std::count_if(uses.begin(), uses.end(), [](const auto& use) { return use.second == 2; }), 7);
    EXPECT_EQ(uses.size(), 13733U - 7U);
}

TEST(message_id_table, rows_are_shared_and_lie_inside_the_text_table) {
    std::set<std::int32_t> rows;
    int on_row_1 = 0;
    for (const auto* message = FIRST; message != end_of_messages(); ++message) {
        rows.insert(message->message_table_index);
        on_row_1 += message->message_table_index == 1 ? 1 : 0;
    }
    EXPECT_EQ(rows.size(), 10124U);
    EXPECT_EQ(on_row_1, 991);
    EXPECT_EQ(*rows.begin(), 1);
    EXPECT_EQ(*rows.rbegin(), 21998);
}

TEST(text_table, only_the_last_row_is_null_and_the_first_two_are_empty) {
    int empty_rows = 0;
    int partly_empty_rows = 0;
    std::size_t longest = 0;
    for (int row = 0; row < ROWS - 1; ++row) {
        for (const char* text : standard_language_message_table[row]) {
            ASSERT_NE(text, nullptr) << row;
            longest = std::max(longest, std::strlen(text));
            ASSERT_TRUE(std::none_of(text, text + std::strlen(text), [](char c) {
                return c != '\n' && c >= '\0' && c < ' ';
            })) << text;
        }
        const int texts = count_texts(row);
        empty_rows += texts == 0 ? 1 : 0;
        partly_empty_rows += texts != 0 && texts != LANGUAGES ? 1 : 0;
    }
    for (const char* text : standard_language_message_table[ROWS - 1]) {
        EXPECT_EQ(text, nullptr);
    }
    EXPECT_EQ(count_texts(0), 0);
    EXPECT_EQ(count_texts(1), 0);
    EXPECT_EQ(empty_rows, 10862);
    EXPECT_EQ(partly_empty_rows, 2);
    EXPECT_EQ(longest, 1061U);
    EXPECT_STREQ(standard_language_message_table[2][1], "Copy");
}
