#include "navigation_bar.h"

#include "machine_state.h"
#include "panel_button.h"
#include "panel_view_ids.h"
#include "units.h"

#include <QHBoxLayout>
#include <QPainter>

#include <algorithm>

namespace velarion {

namespace {

struct navigation_entry {
    const char* name;
    const char* picture; ///< id
    const char* screen;
};

constexpr navigation_entry ENTRIES[] = {
    {"nav_home", ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_HOME, "home"},
    {"nav_jobs", ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_JOB_LIST, "status"},
    {"nav_trays", ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_TRAY, "trays"},
    {"nav_settings", ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_SETTINGS, "settings"},
};
constexpr int HOME = 0;
constexpr int JOBS = 1;
constexpr int TRAYS = 2;

constexpr int LINE = 3;       // dp
constexpr int LOW_TONER = 10; // %

bool needs_supplies(const machine_state& machine) {
    const std::vector<toner_bottle>& bottles = machine.toner();
    return machine.condition() == machine_condition::NO_PAPER ||
           std::any_of(bottles.begin(), bottles.end(),
                       [](const toner_bottle& bottle) { return bottle.percent <= LOW_TONER; });
}

} // namespace

navigation_bar::navigation_bar(const machine_state& machine)
    : machine_(machine) {
    setFixedHeight(px(grid::navigation));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(px(grid::margin), px(LINE), px(grid::margin), 0);
    layout->setSpacing(px(grid::space));
    for (const navigation_entry& entry : ENTRIES) {
        auto* button = new panel_button(entry.name, button_form::PICTURE, {}, entry.picture);
        button->set_ground(false);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        const QString screen = QLatin1String(entry.screen);
        connect(button, &QAbstractButton::clicked, this, [this, screen] { Q_EMIT chosen(screen); });
        layout->addWidget(button);
        buttons_.push_back(button);
    }
    connect(&machine, &machine_state::changed, this, [this] { refresh(); });
    refresh();
}

void navigation_bar::refresh() {
    const std::vector<machine_job>& jobs = machine_.jobs();
    const auto open =
        std::count_if(jobs.begin(), jobs.end(), [](const machine_job& job) { return !job.is_over(); });
    buttons_[JOBS]->set_badge(open > 0 ? QString::number(open) : QString());
    buttons_[TRAYS]->set_badge(needs_supplies(machine_) ? QStringLiteral("!") : QString());
}

void navigation_bar::set_current(const QString& screen) {
    current_ = HOME;
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        if (screen == QLatin1String(ENTRIES[i].screen)) {
            current_ = static_cast<int>(i);
        }
    }
    update();
}

void navigation_bar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), colors::surface);
    const QRect button = buttons_[static_cast<std::size_t>(current_)]->geometry();
    painter.fillRect(QRect(button.left(), 0, button.width(), px(LINE)), colors::accent);
}

} // namespace velarion
