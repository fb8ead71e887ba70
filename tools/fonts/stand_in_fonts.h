#ifndef STAND_IN_FONTS_H
#define STAND_IN_FONTS_H

#include <QString>

namespace velarion {

/** Lets the toolkit show, where a family of the panel is not there, what a workstation has in its place. */
void use_stand_in_fonts();

/** Whether a family is shown in place of one of the panel's. */
bool is_stand_in_font(const QString& family);

} // namespace velarion

#endif
