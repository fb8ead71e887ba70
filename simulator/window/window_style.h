#ifndef WINDOW_STYLE_H
#define WINDOW_STYLE_H

#include <QColor>

namespace velarion {

/** Colours of what stands around the device, in menus, tables and dialogs; each text has a contrast of 4.5.
 */
namespace window_colors {
inline constexpr QColor ground(0x2a, 0x2d, 0x32);
inline constexpr QColor field(0x1e, 0x20, 0x24);
inline constexpr QColor other_row(0x25, 0x28, 0x2c);
inline constexpr QColor button(0x3c, 0x40, 0x47);
inline constexpr QColor text(0xe6, 0xe8, 0xeb);
inline constexpr QColor quiet_text(0xa4, 0xaa, 0xb3);
inline constexpr QColor disabled_text(0x84, 0x8a, 0x93);
inline constexpr QColor accent(0x2f, 0x6f, 0xb2);
inline constexpr QColor link(0x7c, 0xbd, 0xff);
inline constexpr QColor fault_text(0xff, 0x8a, 0x80);
inline constexpr QColor fall_back_text(0xff, 0xc2, 0x5c);
} // namespace window_colors

/** Gives the application its look, the same on every desktop; before the first widget. */
void set_window_style();

} // namespace velarion

#endif
