#ifndef FACE_STYLE_H
#define FACE_STYLE_H

#include <QColor>

namespace velarion {

/** Colours of the device around the display: quieter than the panel. */
namespace face_colors {
inline constexpr QColor body(0x3a, 0x3d, 0x42);
inline constexpr QColor bezel(0x14, 0x16, 0x19);
inline constexpr QColor label(0xd4, 0xd7, 0xdb);
inline constexpr QColor dark_lamp(0x26, 0x28, 0x2c);
inline constexpr QColor lamp_rim(0x5a, 0x5e, 0x66);
inline constexpr QColor key(0x55, 0x59, 0x60);
inline constexpr QColor key_edge(0x6b, 0x70, 0x78);
inline constexpr QColor key_text(0xff, 0xff, 0xff);
inline constexpr QColor start_key(0x1d, 0x74, 0x46);
inline constexpr QColor stop_key(0xa8, 0x35, 0x35);
inline constexpr QColor focus(0x6f, 0xc1, 0xf2);
inline constexpr QColor green(0x56, 0xd8, 0x86);
inline constexpr QColor red(0xff, 0x6b, 0x66);
inline constexpr QColor blue(0x6f, 0xb8, 0xff);
inline constexpr QColor amber(0xff, 0xbf, 0x47);
} // namespace face_colors

} // namespace velarion

#endif
