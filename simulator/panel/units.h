#ifndef UNITS_H
#define UNITS_H

#include "dvc_pnl_common_utility.h"

#include <QSize>

namespace velarion {

inline constexpr QSize PANEL_SIZE(800, 480); ///< of the display, device pixels

/** Device pixels of so many dp. */
inline int px(int dp) {
    return dvc_pnl_common_utility::dip2pixel(dp, dvc_pnl_common_utility::ROUNDING_ROUND);
}

} // namespace velarion

#endif
