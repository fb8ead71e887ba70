#include "sound_levels.h"

#include <cstdlib>

namespace velarion {

const std::vector<panel_sound>& panel_sounds() {
    // MSG_NORMAL_ADMIN_SELECT_KEYSOUND, MSG_NORMAL_DEVICE_SOUND_JOBEND, MSG_NORMAL_ADMIN_SELECT_WARNSOUND;
    // levels: MSG_NORMAL_DEVICE_SOUND_KEYTOUCH_..., ..._JOBEND_..., ..._WARNING_...
    static const std::vector<panel_sound> sounds = {
        {"key", "13001", &sound_settings::key_volume, {{0, "15662"}, {3, "15663"}, {4, "15664"}}},
        {"job_end",
         "17011",
         &sound_settings::done_volume,
         {{0, "15665"}, {2, "15666"}, {4, "15667"}, {5, "15686"}}},
        {"warning", "13002", &sound_settings::error_volume, {{0, "15687"}, {2, "15688"}, {4, "15689"}}},
    };
    return sounds;
}

std::size_t find_sound_level(const panel_sound& sound, int volume) {
    std::size_t nearest = 0;
    for (std::size_t i = 1; i < sound.levels.size(); ++i) {
        if (std::abs(sound.levels[i].volume - volume) < std::abs(sound.levels[nearest].volume - volume)) {
            nearest = i;
        }
    }
    return nearest;
}

} // namespace velarion
