#include "screen_index.h"

#include "picture_requests.h"
#include "screen_table.h"
#include "simulation.h"
#include "units.h"

#include <QImage>

namespace velarion {

namespace {

constexpr int PAUSE = 30;           ///< ms between two views
constexpr int LANGUAGE_PAUSE = 400; ///< ms: a language may be one of several on the way

void show_view(const screen_view& view, machine_state& machine, panel_frame& panel) {
    if (view.prepare) {
        view.prepare(machine);
    }
    panel.open(QLatin1String(view.screen));
}

} // namespace

screen_index::screen_index(simulation& panel, const panel_examiner& examiner)
    : simulation_(panel)
    , examiner_(examiner) {
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &screen_index::visit_next);
    connect(&simulation_, &simulation::language_changed, this, &screen_index::begin);
}

std::size_t screen_index::view_count() {
    return all_screen_views().size();
}

bool screen_index::is_complete() const {
    return screens_.size() == view_count();
}

void screen_index::begin() {
    screens_.clear();
    timer_.start(LANGUAGE_PAUSE);
    Q_EMIT progressed();
}

void screen_index::visit_next() {
    if (is_complete()) {
        return;
    }
    const screen_view& view = all_screen_views()[screens_.size()];
    const picture_counts counts = picture_requests::counts();
    machine_state machine;
    panel_frame panel({machine, hardware_, simulation_}, all_screens());
    show_view(view, machine, panel);
    QImage image(PANEL_SIZE, QImage::Format_RGB32);
    panel.render(&image); // lays it out
    screens_.push_back({QLatin1String(view.name), examiner_.examine(describe_panel(panel))});
    picture_requests::set_counts(counts);
    if (!is_complete()) {
        timer_.start(PAUSE);
    }
    Q_EMIT progressed();
}

bool open_view(simulation& panel, const QString& view) {
    for (const screen_view& each : all_screen_views()) {
        if (view == QLatin1String(each.name)) {
            panel.panel().go_home();
            show_view(each, panel.machine(), panel.panel());
            return true;
        }
    }
    return false;
}

} // namespace velarion
