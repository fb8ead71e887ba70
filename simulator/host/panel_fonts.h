#ifndef PANEL_FONTS_H
#define PANEL_FONTS_H

#include <QString>

namespace velarion {

/** Loads the device's fonts that the toolkit does not know yet. GUI thread only, as the next one. */
void load_panel_fonts();

/**
 * Whether a family is one of the device's, or stands in for one that a workstation has not. While no font of
 * a device is loaded every family is.
 */
bool is_panel_font(const QString& family);

} // namespace velarion

#endif
