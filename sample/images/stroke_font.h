#ifndef STROKE_FONT_H
#define STROKE_FONT_H

#include <string>

namespace velarion {

/**
 * A text as path data, for strokes without a fill: capitals, digits and a few signs; what it lacks is left
 * out. Pictures hold no text elements, because a device's fonts are not those of the workstation.
 *
 * @param center_x,center_y  the middle of the text
 * @param height             of a capital, in the units of the picture
 */
std::string stroke_text(const std::string& text, double center_x, double center_y, double height);

/** The width that stroke_text gives a text of that height. */
double stroke_text_width(const std::string& text, double height);

} // namespace velarion

#endif
