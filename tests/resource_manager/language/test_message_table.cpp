#include "dvc_pnl_rmg_message_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <regex>
#include <set>
#include <string>

namespace {

const int ROWS = DVC_PNL_RMG_STANDARD_MESSAGE_ROWS;
const int LANGUAGES = DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT;
const DVC_PNL_RMG_IMPL_MESSAGE* const FIRST = dvc_pnl_rmg_impl_message_table;

/** How many of a row's cells hold a text that is not empty. */
int count_texts(int row) {
    const auto& cells = standard_language_message_table[row];
    return static_cast<int>(std::count_if(cells, cells + LANGUAGES,
                                          [](const char* text) { return text != nullptr && *text != '\0'; }));
}

std::set<std::string> placeholders_in(const char* text) {
    std::set<std::string> found;
    for (const char* c = text; *c != '\0'; ++c) {
        if (*c == '%' && c[1] >= '1' && c[1] <= '9') {
            found.insert(std::string(c, 2));
        }
    }
    return found;
}

} // namespace

TEST(message_id_table, has_the_numbering_of_the_device) {
    ASSERT_EQ(dvc_pnl_rmg_imple_message_table_size, 13733);
    int last_id = 0;
    int gaps = 0;
    std::set<std::string> names;
    std::multiset<std::int32_t> rows;
    for (const auto* message = FIRST; message != FIRST + dvc_pnl_rmg_imple_message_table_size; ++message) {
        ASSERT_LT(last_id, message->message_id) << message->message_name;
        gaps += message->message_id != last_id + 1 ? 1 : 0;
        last_id = message->message_id;
        names.insert(message->message_name);
        rows.insert(message->message_table_index);
    }
    EXPECT_EQ(gaps, 870);
    EXPECT_EQ(last_id, 31395);
    EXPECT_EQ(names.size(), 13733U - 7U); // seven stand twice
    EXPECT_EQ(*rows.begin(), 1);
    EXPECT_EQ(*rows.rbegin(), 21998);
    EXPECT_EQ(rows.count(1), 991U);
    EXPECT_EQ(std::set<std::int32_t>(rows.begin(), rows.end()).size(), 10124U);
}

TEST(text_table, only_the_last_row_is_null_and_the_first_two_are_empty) {
    int empty_rows = 0;
    int partly_empty_rows = 0;
    for (int row = 0; row < ROWS - 1; ++row) {
        for (const char* text : standard_language_message_table[row]) {
            ASSERT_NE(text, nullptr) << row;
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
}

TEST(text_table, texts_hold_the_same_placeholders_in_every_language_and_no_stray_control_bytes) {
    for (int row = 0; row < ROWS - 1; ++row) {
        for (const char* text : standard_language_message_table[row]) {
            if (*text != '\0') {
                ASSERT_EQ(placeholders_in(text), placeholders_in(standard_language_message_table[row][0]))
                    << text;
            }
            ASSERT_TRUE(std::none_of(text, text + std::strlen(text), [](char c) {
                return c != '\n' && c >= '\0' && c < ' ';
            })) << text;
        }
    }
}

/** A text that stands in the wrong language's column is in the wrong script there. */
TEST(text_table, columns_hold_their_own_script) {
    int japanese = 0;
    int russian = 0;
    int rows = 0;
    const std::regex kana_or_han("[\xE3-\xE9][\x80-\xBF][\x80-\xBF]");
    const std::regex cyrillic("[\xD0\xD1][\x80-\xBF]");
    for (int row = 2; row < ROWS - 1; ++row) {
        if (count_texts(row) != LANGUAGES) {
            continue;
        }
        ++rows;
        const auto& texts = standard_language_message_table[row];
        japanese += std::regex_search(texts[0], kana_or_han) ? 1 : 0;
        russian += std::regex_search(texts[7], cyrillic) ? 1 : 0;
        for (int language = 1; language < 7; ++language) {
            ASSERT_FALSE(std::regex_search(texts[language], cyrillic)) << texts[language];
        }
    }
    EXPECT_GT(japanese, rows * 95 / 100);
    EXPECT_GT(russian, rows * 95 / 100);
}
