#include "dvc_pnl_common_utility.h"

#include "dvc_pnl_utl_toolkit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

using utility = velarion::dvc_pnl_common_utility;

namespace {

const utility::ROUNDING_TYPE CEIL = utility::ROUNDING_CEIL;
const utility::ROUNDING_TYPE FLOOR = utility::ROUNDING_FLOOR;
const utility::ROUNDING_TYPE ROUND = utility::ROUNDING_ROUND;
constexpr int INT_LEAST = std::numeric_limits<int>::min();
constexpr int INT_MOST = std::numeric_limits<int>::max();

int number_by_toolkit(const std::string& text, bool& is_whole) {
    return velarion::dvc_pnl_utl_from_8bit(text.c_str()).toInt(&is_whole, 10);
}

/** An operand as the rules say: cut at its "dp", read by the toolkit. */
bool operand_by_rules(const std::string& operand, utility::ROUNDING_TYPE type, std::int64_t& px) {
    const std::string::size_type suffix = operand.find("dp");
    bool is_whole = false;
    const int number = number_by_toolkit(operand.substr(0, suffix), is_whole);
    px = suffix == std::string::npos ? number : utility::dip2pixel(number, type);
    return is_whole || suffix != std::string::npos; // what is no number of dp counts as "0"
}

std::string expression_by_rules(const std::string& text, utility::ROUNDING_TYPE type) {
    const std::string::size_type plus = text.find('+');
    const std::string::size_type place = plus == std::string::npos ? text.find('-') : plus;
    std::int64_t left = 0;
    std::int64_t right = 0;
    if (place == std::string::npos) {
        operand_by_rules(text, FLOOR, left);
        return text.find("dp") == std::string::npos ? text : std::to_string(left);
    }
    if (!operand_by_rules(text.substr(0, place), type, left) ||
        !operand_by_rules(text.substr(place + 1), type, right)) {
        return "0";
    }
    const std::int64_t result = text[place] == '+' ? left + right : left - right;
    return std::to_string(std::min<std::int64_t>(INT_MOST, std::max<std::int64_t>(INT_LEAST, result)));
}

} // namespace

/** A step of the table must be no step of the result: both sides of it follow one rule. */
TEST(dip2pixel, tables_hold_what_the_floating_point_rule_gives) {
    const double factor = 9.0 / 7.0;
    const std::int32_t* const floor_table = utility::s_dp2px_table_floor_;
    EXPECT_EQ(floor_table[1024], 1316);
    for (int dp = 0; dp <= 1024; ++dp) {
        SCOPED_TRACE(dp);
        EXPECT_EQ(utility::dip2pixel(dp, FLOOR), static_cast<int>(dp * factor));
        EXPECT_EQ(utility::dip2pixel(dp, CEIL), static_cast<int>(std::floor(dp * factor + 0.5)));
        EXPECT_EQ(utility::dip2pixel(dp, ROUND), static_cast<int>(std::round(dp * factor)));
    }
}

TEST(dip2pixel, integers_at_the_boundaries) {
    const struct {
        int dp, ceil, floor, round;
    } rows[] = {
        {1025, 1318, 1317, 1318},
        {-1, 0, -1, -1},
        {-2, -2, -2, -3},
        {1670265061, INT_MOST, INT_MOST, INT_MOST}, // the first whose pixels an int cannot hold
        {INT_LEAST, INT_LEAST, INT_LEAST, INT_LEAST},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.dp);
        EXPECT_EQ(utility::dip2pixel(row.dp, CEIL), row.ceil);
        EXPECT_EQ(utility::dip2pixel(row.dp, FLOOR), row.floor);
        EXPECT_EQ(utility::dip2pixel(row.dp, ROUND), row.round);
        EXPECT_EQ(utility::dip2pixel(row.dp, static_cast<utility::ROUNDING_TYPE>(7)), row.round);
    }
}

TEST(pixeldip2pixel, texts_and_expressions) {
    const char* const rows[][2] = {
        {"10dp", "12"}, // no operator: truncated, whatever the caller's type
        {"10DP", "10DP"},
        {"dp", "0"},
        {"x10dp", "0"},
        {"1.5dp", "0"},
        {"2147483648dp", "0"},
        {"10dp+0", "13"},
        {"10dp-4", "9"},
        {"100+10dp", "113"},
        {"10dp-5dp+2dp", "16"}, // split at the plus sign; "-5dp" stands behind the left
                                // part's "dp"
        {"-5dp", "0"},
        {"10dp+", "0"},
        {"2147483647+1", "2147483647"},
        {"-2147483648dp+-1", "-2147483648"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(utility::pixeldip2pixel(row[0], ROUND), row[1]) << row[0];
    }
    EXPECT_EQ(utility::pixeldip2pixel("10dp+10dp", FLOOR), "24");
}

/** Numbers are read in place: no byte at any place may give another result than the rules do. */
TEST(pixeldip2pixel, reads_every_text_by_the_rules) {
    std::vector<std::string> texts = {"999999999dp+9999999999", "-2147483648-1dp", "0010dp+-004",
                                      "1+\xD9\xA3"};
    for (int byte = 0; byte < 256; ++byte) {
        const std::string one(1, static_cast<char>(byte));
        texts.insert(texts.end(), {one, one + "dp", "7" + one, "7" + one + "dp", "7d" + one, "7dp" + one,
                                   one + "7dp+4", "7" + one + "dp-4", "7dp" + one + "4", "7dp-" + one + "4",
                                   "7dp+4" + one, "7+4d" + one, "7-4dp" + one, one + "7-4+5"});
    }
    std::srand(7);
    for (int i = 0; i < 20000; ++i) {
        std::string text;
        for (int left = std::rand() % 6; left > 0; --left) {
            const char* const parts[] = {"10", "dp", "+", "-", "1025", " ", "2147483647", "d", "p", "x"};
            text += parts[std::rand() % 10];
        }
        texts.push_back(text);
    }
    for (const std::string& text : texts) {
        for (const auto type : {CEIL, FLOOR, ROUND}) {
            EXPECT_EQ(utility::pixeldip2pixel(text, type), expression_by_rules(text, type))
                << testing::PrintToString(text);
        }
        if (text.find_first_of("+-") == std::string::npos) {
            EXPECT_EQ(utility::dip2pixel(text, FLOOR), expression_by_rules(text, FLOOR))
                << testing::PrintToString(text);
        }
    }
}

TEST(units, pixels_and_millimetres) {
    EXPECT_EQ(utility::pixel2dip(-10), "-7dp");
    EXPECT_EQ(utility::pixel2dip(INT_MOST), "1670265058dp");
    EXPECT_EQ(utility::pixel2dip(INT_LEAST), "-1670265059dp");
    EXPECT_EQ(utility::get_mm_to_pixel_size(0, 10.0), 52);
    EXPECT_EQ(utility::get_mm_to_pixel_size(1, 10.0), 56);
    EXPECT_EQ(utility::get_mm_to_pixel_size(0, -0.5), -3);
    EXPECT_EQ(utility::get_mm_to_pixel_size(0, 1e12), INT_MOST);
    EXPECT_EQ(utility::get_mm_to_pixel_size(2, 10.0), -1);
    EXPECT_EQ(utility::get_mm_to_pixel_size(-1, 10.0), -1);
}

/** The short way through the conversion must never be seen: every text gives what the toolkit gives. */
TEST(string_to_int, accepts_what_the_toolkit_accepts) {
    std::vector<std::string> texts = {"2147483647",  "2147483648", "-2147483648",
                                      "-2147483649", "\xD9\xA3",   "0000000000012"};
    texts.push_back(std::string("12\0x", 4));
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
        const int expected = number_by_toolkit(text, is_whole);
        int value = 4711;
        EXPECT_EQ(utility::string_to_int(text, value), is_whole) << testing::PrintToString(text);
        EXPECT_EQ(value, expected) << testing::PrintToString(text);
    }
}
