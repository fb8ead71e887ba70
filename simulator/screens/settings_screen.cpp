#include "settings_screen.h"

#include "language_keyboards.h"
#include "machine_state.h"
#include "panel_frame.h"
#include "panel_languages.h"
#include "panel_list.h"
#include "panel_view_ids.h"
#include "screen_layout.h"

namespace velarion {

namespace {

struct settings_entry {
    const char* screen;
    const char* picture;
    const char* text;
};

constexpr settings_entry ENTRIES[] = {
    {"settings_language", ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_LANGUAGE, MSG_NORMAL_TITLE_DISPLAY_LANGUAGE},
    {"settings_sounds", ICON_CMN_OTHER_SOUND, MSG_NORMAL_DEVICE_SOUND_TITLE},
    {"settings_network", ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_NETWORK, MSG_NORMAL_NET_TITLE},
    {"trays", ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_TONER, MSG_NORMAL_SUPPLY_TITLE_SUPPLY_LEVELS},
    {"hardware_test", ICON_CMN_OTHER_WRENCH, MSG_TITLE_OPERATION_PANEL},
    {"help", ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_HELP, MSG_NORMAL_TITLE_HELP},
};

} // namespace

settings_screen::settings_screen(const panel_context& context)
    : panel_screen(context)
    , list_(new panel_list) {
    lay_out_column(*this, {list_});
    connect(list_, &panel_list::chosen, this,
            [this](int row) { frame().open(QLatin1String(ENTRIES[row].screen)); });
    connect(&machine(), &machine_state::changed, this, [this] { refresh(); });
    refresh();
}

message_text settings_screen::title() const {
    return MSG_NORMAL_TITLE_SETTINGS;
}

void settings_screen::refresh() {
    std::vector<list_row> rows;
    for (const settings_entry& entry : ENTRIES) {
        rows.push_back({QLatin1String(entry.screen), QLatin1String(entry.picture), entry.text});
    }
    const language_choice preferred = languages().preferred_language();
    rows[0].value = language_name(preferred.language_id != 0 ? preferred : languages().standard_language());
    rows[2].value = message_text::literal(machine().network().address);
    list_->set_rows(rows);
}

} // namespace velarion
