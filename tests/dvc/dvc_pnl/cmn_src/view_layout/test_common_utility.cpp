#include "dvc_pnl_common_utility.h"

#include "dvc_pnl_utl_toolkit.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

using utility = velarion::dvc_pnl_common_utility;

namespace {

const utility::ROUNDING_TYPE CEIL = utility::ROUNDING_CEIL;
const utility::ROUNDING_TYPE FLOOR = utility::ROUNDING_FLOOR;
const utility::ROUNDING_TYPE ROUND = utility::ROUNDING_ROUND;
const utility::ROUNDING_TYPE UNKNOWN = static_cast<utility::ROUNDING_TYPE>(7);
const int INT_LEAST = std::numeric_limits<int>::min();
const int INT_MOST = std::numeric_limits<int>::max();

} // namespace

/** A step of the table must be no step of the result: both sides of it follow one rule. */
TEST(dip2pixel, tables_hold_what_the_floating_point_rule_gives) {
    const double factor = 9.0 / 7.0;
    for (int dp = 0; dp <= 1024; ++dp) {
        SCOPED_TRACE(dp);
        EXPECT_EQ(utility::dip2pixel(dp, FLOOR), static_cast<int>(dp * factor));
        EXPECT_EQ(utility::dip2pixel(dp, CEIL), static_cast<int>(dp * factor + 0.5));
        EXPECT_EQ(utility::dip2pixel(dp, ROUND), static_cast<int>(std::round(dp * factor)));
    }
}

TEST(dip2pixel, integers_at_the_boundaries) {
    const struct {
        int dp, ceil, floor, round;
    } rows[] = {
        {0, 0, 0, 0},
        {1, 1, 1, 1},
        {2, 3, 2, 3},
        {7, 9, 9, 9},
        {1024, 1317, 1316, 1317},
        {1025, 1318, 1317, 1318},
        {-1, 0, -1, -1},
        {-2, -2, -2, -3},
        {1670265061, INT_MOST, INT_MOST, INT_MOST}, // the first whose pixels an int cannot hold
        {INT_MOST, INT_MOST, INT_MOST, INT_MOST},
        {INT_LEAST, INT_LEAST, INT_LEAST, INT_LEAST},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.dp);
        EXPECT_EQ(utility::dip2pixel(row.dp, CEIL), row.ceil);
        EXPECT_EQ(utility::dip2pixel(row.dp, FLOOR), row.floor);
        EXPECT_EQ(utility::dip2pixel(row.dp, ROUND), row.round);
        EXPECT_EQ(utility::dip2pixel(row.dp, UNKNOWN), row.round);
    }
}

TEST(dip2pixel, texts) {
    const struct {
        const char* text;
        utility::ROUNDING_TYPE type;
        const char* px;
    } rows[] = {
        {"10dp", ROUND, "13"},
        {"10dp", FLOOR, "12"},
        {"10dpx5", ROUND, "13"},
        {"-5dp", FLOOR, "-6"},
        {" +7 dp", ROUND, "9"},
        {"10DP", ROUND, "10DP"},
        {"12", ROUND, "12"},
        {"", ROUND, ""},
        {"dp", ROUND, "0"},
        {"x10dp", ROUND, "0"},
        {"1.5dp", ROUND, "0"},
        {"2147483648dp", ROUND, "0"},
        {"2147483647dp", FLOOR, "2147483647"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(utility::dip2pixel(std::string(row.text), row.type), row.px) << row.text;
    }
}

TEST(pixeldip2pixel, expressions) {
    const struct {
        const char* text;
        const char* px;
    } rows[] = {
        {"10dp", "12"}, // no operator: truncated, whatever the caller's type
        {"10dp+0", "13"},
        {"10dp+4", "17"},
        {"10dp-4", "9"},
        {"100+10dp", "113"},
        {"10dp+2dp", "16"},
        {"10dp-5dp+2dp", "16"}, // split at the plus sign; "-5dp" stands behind the left part's "dp"
        {"-5dp", "0"},
        {"+10dp", "0"},
        {"10dp+", "0"},
        {"10dp+5-2", "0"},
        {"", ""},
        {"abc", "abc"},
        {"a+1", "0"},
        {"2147483647+1", "2147483647"},
        {"0-2147483647", "-2147483647"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(utility::pixeldip2pixel(row.text, ROUND), row.px) << row.text;
    }
    EXPECT_EQ(utility::pixeldip2pixel("10dp+10dp", FLOOR), "24");
}

TEST(units, pixels_to_dp_truncate_exactly) {
    const struct {
        int px;
        const char* dp;
    } rows[] = {{0, "0dp"},
                {9, "7dp"},
                {10, "7dp"},
                {13, "10dp"},
                {-10, "-7dp"},
                {-1, "0dp"},
                {INT_MOST, "1670265058dp"},
                {INT_LEAST, "-1670265059dp"}};
    for (const auto& row : rows) {
        EXPECT_EQ(utility::pixel2dip(row.px), row.dp);
    }
}

TEST(units, millimetres) {
    const struct {
        int density;
        double millimetre;
        int px;
    } rows[] = {
        {0, 10.0, 52},       {1, 10.0, 56},         {0, 0.5, 3},
        {0, -10.0, -52},     {2, 10.0, -1},         {-1, 0.0, -1},
        {0, 1e12, INT_MOST}, {1, -1e12, INT_LEAST}, {1, std::numeric_limits<double>::infinity(), INT_MOST},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(utility::get_mm_to_pixel_size(row.density, row.millimetre), row.px) << row.millimetre;
    }
}

/** The short way through the conversion must never be seen: every text gives what the toolkit gives. */
TEST(string_to_int, accepts_what_the_toolkit_accepts) {
    std::vector<std::string> texts = {
        "",
        "0",
        "-0",
        "+0",
        "-",
        "+",
        "42",
        "+42",
        "-7",
        "00012",
        "010",
        "-00000000000000000012",
        "999999999",
        "9999999999",
        "2147483647",
        "2147483648",
        "-2147483648",
        "-2147483649",
        "0x10",
        "12a",
        "a12",
        "1 2",
        "1.0",
        "1e3",
        "1,000",
        "++42",
        "+ 42",
        "- 42",
        "+-7",
        "\t 5\n",
        " -5 ",
        "\xC2\xA0"
        "5",
        "\xD9\xA3",
        std::string("12\0x", 4),
        std::string("\0"
                    "12",
                    3),
        "-999999999",
    };
    for (int byte = 1; byte < 256; ++byte) {
        const std::string one(1, static_cast<char>(byte));
        texts.insert(texts.end(), {one, one + "7", "7" + one, "-" + one, one + "-7", "1" + one + "2"});
    }
    std::srand(7);
    for (int i = 0; i < 20000; ++i) {
        std::string text(static_cast<std::size_t>(std::rand() % 13), '\0');
        for (char& c : text) {
            c = "0123456789-+ \t9876543210xa."[std::rand() % 28];
        }
        texts.push_back(text);
    }
    for (const std::string& text : texts) {
        bool is_whole = false;
        const int expected = velarion::dvc_pnl_utl_from_8bit(text.c_str()).toInt(&is_whole, 10);
        int value = 4711;
        EXPECT_EQ(utility::string_to_int(text, value), is_whole) << testing::PrintToString(text);
        EXPECT_EQ(value, expected) << testing::PrintToString(text);
    }
}
