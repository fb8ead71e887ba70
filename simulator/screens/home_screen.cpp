#include "home_screen.h"

#include "panel_button.h"
#include "panel_frame.h"
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
    {"copy", "1", "4"},    {"scan", "3", "5"},    {"fax", "4", "6"},       {"documents", "6", "8"},
    {"status", "8", "10"}, {"trays", "18", "22"}, {"settings", "9", "11"}, {"help", "12", "12"},
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
    return "15"; // MSG_NORMAL_TITLE_HOME
}

} // namespace velarion
