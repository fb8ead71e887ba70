#ifndef SOUND_LEVELS_H
#define SOUND_LEVELS_H

#include "machine_settings.h"

#include <vector>

namespace velarion {

/** A volume that a sound can have. */
struct sound_level {
    int volume;          ///< 0 to MOST_VOLUME
    const char* message; ///< id: "Medium volume"
};

/** A sound of the machine, and the volumes that can be chosen, from the softest to the loudest. */
struct panel_sound {
    const char* name;    ///< for scripts
    const char* message; ///< id: "Key sound"
    int sound_settings::*volume;
    std::vector<sound_level> levels;
};

const std::vector<panel_sound>& panel_sounds();

/** @return the place of the level that is nearest to a volume */
std::size_t find_sound_level(const panel_sound& sound, int volume);

} // namespace velarion

#endif
