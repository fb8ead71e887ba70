#include "dvc_pnl_common_utility.h"

#include "dvc_pnl_utl_toolkit.h"
#include "plain_number.h"
#include "saturated.h"

#include <cmath>
#include <limits>

namespace velarion {

namespace {

constexpr double DP_TO_PX = 9.0 / 7.0;
constexpr float HALF = 0.5F;
constexpr int HIGHEST_TABLE_DP = static_cast<int>(dvc_pnl_common_utility::DP2PX_TABLE_SIZE) - 1;
constexpr double PX_PER_MM[] = {5.2002, 5.6053};
constexpr char DP_SUFFIX[] = "dp";
constexpr char FAILURE_TEXT[] = "0";

/** dp * 9/7 plus half of @p doubled_addend, rounded down. */
constexpr std::int32_t table_entry(std::int32_t dp, std::int32_t doubled_addend) {
    return (dp * 18 + doubled_addend * 7) / 14;
}

/** Truncates toward zero; values that an int cannot hold give the nearest limit on every processor. */
int saturated(double value) {
    if (value >= static_cast<double>(std::numeric_limits<int>::max())) {
        return std::numeric_limits<int>::max();
    }
    if (!(value > static_cast<double>(std::numeric_limits<int>::min()))) {
        return std::numeric_limits<int>::min();
    }
    return static_cast<int>(value);
}

/** @return the first "+", where there is none the first "-"; null without both */
const char* find_operator(const char* text, const char* end) {
    const char* minus = nullptr;
    for (; text != end; ++text) {
        if (*text == '+') {
            return text;
        }
        if (*text == '-' && !minus) {
            minus = text;
        }
    }
    return minus;
}

/**
 * Reads a plain number that is followed by "dp" and whatever, or by nothing.
 *
 * @param text  ended by NUL
 * @param end   of the size within it
 * @return whether it is such a size; the toolkit reads the others
 */
inline bool read_plain_size(const char* text, const char* end, int& number, bool& is_dp) {
    const char* const rest = read_plain_digits(text, number);
    is_dp = rest && rest < end && rest[0] == DP_SUFFIX[0] && rest[1] == DP_SUFFIX[1];
    return is_dp || rest == end;
}

bool operand_by_toolkit(const std::string& operand, dvc_pnl_common_utility::ROUNDING_TYPE type, int& px) {
    return dvc_pnl_common_utility::string_to_int(dvc_pnl_common_utility::dip2pixel(operand, type), px);
}

inline bool operand_to_pixel(const char* text, const char* end, dvc_pnl_common_utility::ROUNDING_TYPE type,
                             int& px) {
    int number = 0;
    bool is_dp = false;
    if (!read_plain_size(text, end, number, is_dp)) {
        return operand_by_toolkit(std::string(text, end), type, px);
    }
    px = is_dp ? dvc_pnl_common_utility::dip2pixel(number, type) : number;
    return true;
}

} // namespace

// A plain array takes its entries one by one; as constant expressions they need no start-up code.
// clang-format off
#define ENTRIES_4(dp, addend) table_entry(dp, addend), table_entry((dp) + 1, addend), \
                              table_entry((dp) + 2, addend), table_entry((dp) + 3, addend)
#define ENTRIES_16(dp, addend) ENTRIES_4(dp, addend), ENTRIES_4((dp) + 4, addend), \
                               ENTRIES_4((dp) + 8, addend), ENTRIES_4((dp) + 12, addend)
#define ENTRIES_64(dp, addend) ENTRIES_16(dp, addend), ENTRIES_16((dp) + 16, addend), \
                               ENTRIES_16((dp) + 32, addend), ENTRIES_16((dp) + 48, addend)
#define ENTRIES_256(dp, addend) ENTRIES_64(dp, addend), ENTRIES_64((dp) + 64, addend), \
                                ENTRIES_64((dp) + 128, addend), ENTRIES_64((dp) + 192, addend)
#define ENTRIES_1025(addend) ENTRIES_256(0, addend), ENTRIES_256(256, addend), ENTRIES_256(512, addend), \
                             ENTRIES_256(768, addend), table_entry(1024, addend)
// clang-format on

const std::int32_t dvc_pnl_common_utility::s_dp2px_table_floor_[] = {ENTRIES_1025(0)};
const std::int32_t dvc_pnl_common_utility::s_dp2px_table_round_[] = {ENTRIES_1025(1)};
const std::int32_t dvc_pnl_common_utility::s_dp2px_table_ceil_[] = {ENTRIES_1025(1)};

int dvc_pnl_common_utility::dip2pixel(int dp, ROUNDING_TYPE type) {
    if (static_cast<unsigned int>(dp) <= static_cast<unsigned int>(HIGHEST_TABLE_DP)) {
        const std::size_t index = static_cast<std::size_t>(dp);
        switch (type) {
        case ROUNDING_CEIL:
            return s_dp2px_table_ceil_[index];
        case ROUNDING_FLOOR:
            return s_dp2px_table_floor_[index];
        default:
            return s_dp2px_table_round_[index];
        }
    }
    const double px = dp * DP_TO_PX;
    switch (type) {
    case ROUNDING_CEIL:
        return saturated(px + static_cast<double>(HALF));
    case ROUNDING_FLOOR:
        return saturated(px);
    default:
        return saturated(std::round(px));
    }
}

std::string dvc_pnl_common_utility::dip2pixel(const std::string& size, ROUNDING_TYPE type) {
    const char* const text = size.c_str();
    int dp = 0;
    bool is_dp = false;
    if (!read_plain_size(text, text + size.size(), dp, is_dp)) {
        const std::string::size_type suffix = size.find(DP_SUFFIX);
        is_dp = suffix != std::string::npos;
        if (is_dp && !string_to_int(size.substr(0, suffix), dp)) {
            return FAILURE_TEXT;
        }
    }
    return is_dp ? std::to_string(dip2pixel(dp, type)) : size;
}

std::string dvc_pnl_common_utility::pixeldip2pixel(const std::string& expression, ROUNDING_TYPE type) {
    const char* const text = expression.c_str();
    const char* const end = text + expression.size();
    const char* const sign = find_operator(text, end);
    if (!sign) {
        return dip2pixel(expression, ROUNDING_FLOOR);
    }
    int left = 0;
    int right = 0;
    if (!operand_to_pixel(text, sign, type, left) || !operand_to_pixel(sign + 1, end, type, right)) {
        return FAILURE_TEXT;
    }
    const std::int64_t result = std::int64_t(left) + (*sign == '+' ? right : -std::int64_t(right));
    return std::to_string(saturated(result));
}

std::string dvc_pnl_common_utility::pixel2dip(int px) {
    return std::to_string(std::int64_t(px) * 7 / 9) + DP_SUFFIX;
}

int dvc_pnl_common_utility::get_mm_to_pixel_size(int density, double millimetre) {
    if (density != 0 && density != 1) {
        return -1;
    }
    return saturated(std::round(millimetre * PX_PER_MM[density]));
}

bool dvc_pnl_common_utility::string_to_int(std::string text, int& value) {
    return read_number(text.c_str(), value);
}

bool read_number_by_toolkit(const char* text, int& value) {
    bool is_whole = false;
    value = dvc_pnl_utl_from_8bit(text).toInt(&is_whole, 10);
    return is_whole;
}

} // namespace velarion
