#include "screen_table.h"

#include "home_screen.h"
#include "keyboard_screen.h"

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
    };
    return screens;
}

const std::vector<screen_view>& all_screen_views() {
    static const std::vector<screen_view> views = {
        {"home", "home", nullptr},
        {"keyboard", "keyboard", nullptr},
    };
    return views;
}

} // namespace velarion
