#include "home_screen.h"

#include "panel_button.h"
#include "panel_frame.h"
#include "panel_view_ids.h"
#include "theme.h"
#include "units.h"

#include <QGridLayout>

namespace velarion {

namespace {

struct function_tile {
    const char* screen;
    const char* text;
    const char* picture;
};

constexpr function_tile TILES[] = {
    {"copy", MSG_NORMAL_TITLE_COPY, ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_COPY},
    {"scan", MSG_NORMAL_TITLE_SCAN, ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_SCAN},
    {"fax", MSG_NORMAL_TITLE_FAX, ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_FAX},
    {"documents", MSG_NORMAL_TITLE_DOCUMENT_SERVER, ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_DOCUMENT_SERVER},
    {"status", MSG_NORMAL_TITLE_JOB_LIST, ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_JOB_LIST},
    {"trays", MSG_NORMAL_SUPPLY_TITLE_SUPPLY_LEVELS, ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_TRAY},
    {"settings", MSG_NORMAL_TITLE_SETTINGS, ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_SETTINGS},
    {"help", MSG_NORMAL_TITLE_HELP, ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_HELP},
};
constexpr int COLUMNS = 4;

} // namespace

home_screen::home_screen(const panel_context& context)
    : panel_screen(context) {
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(px(grid::margin), px(grid::margin), px(grid::margin), px(grid::margin));
    layout->setSpacing(px(grid::space));
    int place = 0;
    for (const function_tile& tile : TILES) {
        auto* button = new panel_button(tile.screen, button_form::TILE, tile.text, tile.picture);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        const QString screen = QLatin1String(tile.screen);
        connect(button, &QAbstractButton::clicked, this, [this, screen] { frame().open(screen); });
        layout->addWidget(button, place / COLUMNS, place % COLUMNS);
        ++place;
    }
}

message_text home_screen::title() const {
    return MSG_NORMAL_TITLE_HOME;
}

} // namespace velarion
