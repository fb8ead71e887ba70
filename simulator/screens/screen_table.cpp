#include "screen_table.h"

#include "home_screen.h"
#include "keyboard_screen.h"
#include "language_screen.h"
#include "network_screen.h"
#include "settings_screen.h"
#include "sounds_screen.h"

namespace velarion {

namespace {

template <class SCREEN> panel_screen* make_screen(const panel_context& context) {
    return new SCREEN(context);
}

} // namespace

const std::vector<screen_entry>& all_screens() {
    static const std::vector<screen_entry> screens = {
        {"home", "the functions of the machine", make_screen<home_screen>},
        {"keyboard", "the soft keyboard of the language", make_screen<keyboard_screen>},
        {"settings", "the settings, a list that leads on", make_screen<settings_screen>},
        {"settings_language", "the machine's language and a user's", make_screen<language_screen>},
        {"settings_sounds", "the sounds and how loud they are", make_screen<sounds_screen>},
        {"settings_network", "the network settings", make_screen<network_screen>},
    };
    return screens;
}

const std::vector<screen_view>& all_screen_views() {
    static const std::vector<screen_view> views = {
        {"home", "home", nullptr},
        {"keyboard", "keyboard", nullptr},
        {"settings", "settings", nullptr},
        {"settings_language", "settings_language", nullptr},
        {"settings_sounds", "settings_sounds", nullptr},
        {"settings_network", "settings_network", nullptr},
    };
    return views;
}

} // namespace velarion
