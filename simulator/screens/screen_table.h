#ifndef SCREEN_TABLE_H
#define SCREEN_TABLE_H

#include "panel_screen.h"

#include <vector>

namespace velarion {

class machine_state;

/** A screen as pictures of it are taken: opened, with the machine in a state that shows it at work. */
struct screen_view {
    const char* name; ///< "copy", "copy_running"
    const char* screen;
    void (*prepare)(machine_state& machine); ///< null: the machine as it starts
};

/** The screens of the panel, the home screen first. */
const std::vector<screen_entry>& all_screens();

/** Every screen, some in several states. */
const std::vector<screen_view>& all_screen_views();

} // namespace velarion

#endif
