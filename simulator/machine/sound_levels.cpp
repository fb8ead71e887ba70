#include "sound_levels.h"

#include "panel_view_ids.h"

#include <cstdlib>

namespace velarion {

const std::vector<panel_sound>& panel_sounds() {
    static const std::vector<panel_sound> sounds = {
        {"key",
         MSG_NORMAL_ADMIN_SELECT_KEYSOUND,
         &sound_settings::key_volume,
         {{0, MSG_NORMAL_DEVICE_SOUND_KEYTOUCH_OFF},
          {3, MSG_NORMAL_DEVICE_SOUND_KEYTOUCH_MEDIUM},
          {4, MSG_NORMAL_DEVICE_SOUND_KEYTOUCH_HIGH}}},
        {"job_end",
         MSG_NORMAL_DEVICE_SOUND_JOBEND,
         &sound_settings::done_volume,
         {{0, MSG_NORMAL_DEVICE_SOUND_JOBEND_OFF},
          {2, MSG_NORMAL_DEVICE_SOUND_JOBEND_LOW},
          {4, MSG_NORMAL_DEVICE_SOUND_JOBEND_HIGH},
          {5, MSG_NORMAL_DEVICE_SOUND_JOBEND_MAX}}},
        {"warning",
         MSG_NORMAL_ADMIN_SELECT_WARNSOUND,
         &sound_settings::error_volume,
         {{0, MSG_NORMAL_DEVICE_SOUND_WARNING_OFF},
          {2, MSG_NORMAL_DEVICE_SOUND_WARNING_LOW},
          {4, MSG_NORMAL_DEVICE_SOUND_WARNING_HIGH}}},
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
