#ifndef DENSITY_DIALOG_H
#define DENSITY_DIALOG_H

#include <functional>

namespace velarion {

class panel_frame;

/** Asks how dark copies are to be. @param chosen  is told each density that is tapped, -DARKEST to DARKEST */
void ask_density(panel_frame& frame, int current, const std::function<void(int density)>& chosen);

} // namespace velarion

#endif
