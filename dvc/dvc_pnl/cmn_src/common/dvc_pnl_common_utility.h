#ifndef DVC_PNL_COMMON_UTILITY_H
#define DVC_PNL_COMMON_UTILITY_H

#include "dvc_pnl_export.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace velarion {

/**
 * Display units and the library's one text-to-integer conversion.
 *
 * The panel shows 9 device pixels (px) for every 7 density-independent pixels (dp). Size texts are
 * ASCII: a decimal integer, followed by "dp" when it is meant in dp, otherwise in px.
 *
 * No state; every operation may be called from any thread at any time, and none throws on its own
 * account.
 */
class DVC_PNL_EXPORT dvc_pnl_common_utility {
public:
    enum ROUNDING_TYPE : int {
        ROUNDING_CEIL = 0,  ///< nearest integer, halves upward; despite its name not the ceiling
        ROUNDING_FLOOR = 1, ///< truncation toward zero
        ROUNDING_ROUND = 2  ///< nearest integer, halves away from zero; also any further value
    };

    static constexpr std::size_t DP2PX_TABLE_SIZE = 1025;

    /** Pixels of 0 to 1024 dp, one table for each rounding type. */
    static const std::int32_t s_dp2px_table_floor_[DP2PX_TABLE_SIZE];
    static const std::int32_t s_dp2px_table_round_[DP2PX_TABLE_SIZE];
    static const std::int32_t
        s_dp2px_table_ceil_[DP2PX_TABLE_SIZE]; ///< holds the values of s_dp2px_table_round_

    dvc_pnl_common_utility() {}
    ~dvc_pnl_common_utility() {}

    /**
     * Converts dp to px.
     *
     * @param dp    any value; 0 to 1024 is read from a table
     * @param type  how to round
     * @return px, saturated at the limits of a signed 32-bit integer
     */
    static int dip2pixel(int dp, ROUNDING_TYPE type);

    /**
     * Converts a size text to a text in px.
     *
     * @param size  a text without "dp" is taken as px and returned unchanged, whatever it holds;
     *              what follows the first "dp" is ignored
     * @param type  how to round
     * @return px in decimal; "0" when the part before "dp" is no integer
     */
    static std::string dip2pixel(const std::string& size, ROUNDING_TYPE type);

    /**
     * Evaluates a size expression: one size, or a sum or difference of two.
     *
     * The first "+" splits the text; without one, the first "-" does. Further operators are not
     * evaluated.
     *
     * @param expression  for instance "10dp", "10dp+4", "100-8dp"
     * @param type        how each operand is rounded; not used for a single size, which is truncated
     * @return px in decimal; "0" when an operand is no size; a single text without "dp" unchanged
     */
    static std::string pixeldip2pixel(const std::string& expression, ROUNDING_TYPE type);

    /** Converts px to a text in dp ("7dp"), truncated toward zero. */
    static std::string pixel2dip(int px);

    /**
     * Converts a length to px, rounded to nearest with halves away from zero.
     *
     * @param density     0: 5.2002 px per mm, 1: 5.6053 px per mm
     * @param millimetre  length in mm
     * @return px, saturated at the limits of a signed 32-bit integer, at the lower one for what is no number;
     *         -1 for any other density
     */
    static int get_mm_to_pixel_size(int density, double millimetre);

    /**
     * Reads a text that is wholly a decimal integer, as the toolkit's QString::toInt does: an optional
     * sign, white space around the number, nothing else.
     *
     * @param text   read up to its first NUL
     * @param value  receives the integer; 0 on failure
     * @return whether the whole text is an integer in the range of a signed 32-bit integer
     */
    static bool string_to_int(std::string text, int& value);
};

} // namespace velarion

#endif
