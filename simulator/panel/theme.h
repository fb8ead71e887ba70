#ifndef THEME_H
#define THEME_H

#include <QColor>
#include <QFont>

class QWidget;

namespace velarion {

/** Colours of the panel, those of its pictures. Each pair of a text and its ground has a contrast of 4.5 or
 * more. */
namespace colors {
inline constexpr QColor background(0x1f, 0x2a, 0x36);
inline constexpr QColor surface(0x2b, 0x39, 0x48);
inline constexpr QColor raised(0x3a, 0x4b, 0x5d);
inline constexpr QColor line(0x46, 0x5a, 0x6e);
inline constexpr QColor text(0xf2, 0xf5, 0xf7);
inline constexpr QColor quiet_text(0xb4, 0xc0, 0xcc);
inline constexpr QColor disabled_text(0x8f, 0xa0, 0xb4);
inline constexpr QColor accent(0x3f, 0xa7, 0xe0);
inline constexpr QColor on_accent(0x10, 0x20, 0x2d);
inline constexpr QColor warn(0xf2, 0xb1, 0x34);
inline constexpr QColor error(0xf0, 0x73, 0x76);
inline constexpr QColor error_surface(0x7a, 0x2c, 0x33);
inline constexpr QColor ok(0x4b, 0xb9, 0x78);
} // namespace colors

/** The grid, in dp: everything stands on multiples of 4. */
namespace grid {
inline constexpr int gap = 4;         ///< between parts of one thing
inline constexpr int space = 8;       ///< between things
inline constexpr int margin = 12;     ///< around a screen
inline constexpr int title_bar = 40;  ///< height
inline constexpr int navigation = 44; ///< height
inline constexpr int row = 40;        ///< height of a list row
inline constexpr int touch = 36;      ///< least size of what is touched
inline constexpr int icon = 24;       ///< beside a text
inline constexpr int large_icon = 44; ///< above a text
} // namespace grid

/** The type scale. */
enum class text_role {
    CAPTION, ///< 11 dp
    BODY,    ///< 14 dp
    BUTTON,  ///< 14 dp, bold
    TITLE,   ///< 17 dp, bold
    NUMBER   ///< 34 dp
};

/** The font of the language in force at a step of the scale. */
QFont font_of(text_role role);

/** @return the font at so many dp less, down to the smallest of the scale; the same font when it is there */
QFont smaller_font(const QFont& font);

/** Paints the whole of a widget as a surface with round corners; from its paintEvent(). */
void paint_surface(QWidget& widget);

} // namespace velarion

#endif
