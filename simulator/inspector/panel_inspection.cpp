#include "panel_inspection.h"

#include "simulation.h"

#include <QEvent>

namespace velarion {

namespace {

constexpr int DELAY = 150; ///< ms; so long a change of the panel may go unseen

template <class FINDING>
const FINDING* find_in(const std::vector<FINDING>& findings, const element_key& key) {
    const FINDING* best = nullptr;
    for (const FINDING& finding : findings) {
        if (element_key::of(finding).is_same(key) && (!best || finding.shown.box == key.box)) {
            best = &finding;
        }
    }
    return best;
}

int area(const QRect& box) {
    return box.width() * box.height();
}

template <class FINDING>
void choose_smallest(const std::vector<FINDING>& findings, const QPoint& place, element_key& chosen) {
    for (const FINDING& finding : findings) {
        if (finding.shown.box.contains(place) &&
            (chosen.is == element_key::NONE || area(finding.shown.box) <= area(chosen.box))) {
            chosen = element_key::of(finding);
        }
    }
}

} // namespace

element_key element_key::of(const text_finding& text) {
    const message_text& message = text.shown.message;
    return {TEXT, message.is_message() ? message.id() : text.shown.text, text.shown.box};
}

element_key element_key::of(const picture_finding& picture) {
    return {PICTURE, picture.shown.id, picture.shown.box};
}

panel_inspection::panel_inspection(simulation& panel)
    : simulation_(panel) {
    delay_.setSingleShot(true);
    delay_.setInterval(DELAY);
    connect(&delay_, &QTimer::timeout, this, &panel_inspection::refresh);
    connect(&simulation_, &simulation::language_changed, &delay_, [this] { delay_.start(); });
    watch_panel();
    delay_.start();
}

void panel_inspection::watch_panel() {
    if (watched_ != &simulation_.panel()) {
        watched_ = &simulation_.panel();
        watched_->installEventFilter(this);
    }
}

bool panel_inspection::eventFilter(QObject* watched, QEvent* event) {
    const bool is_change = event->type() == QEvent::UpdateRequest || event->type() == QEvent::LayoutRequest;
    if (is_change && !delay_.isActive()) {
        delay_.start();
    }
    return QObject::eventFilter(watched, event);
}

void panel_inspection::refresh() {
    watch_panel();
    findings_ = examiner_.examine(describe_panel(simulation_.panel()));
    if (pointed_.is != element_key::NONE && !find_text(pointed_) && !find_picture(pointed_)) {
        pointed_ = {};
    }
    Q_EMIT refreshed();
    Q_EMIT pointed_changed();
}

element_key panel_inspection::element_at(const QPoint& place) const {
    element_key chosen;
    choose_smallest(findings_.texts, place, chosen);
    if (chosen.is == element_key::NONE) {
        choose_smallest(findings_.pictures, place, chosen);
    }
    return chosen;
}

const text_finding* panel_inspection::find_text(const element_key& key) const {
    return key.is == element_key::TEXT ? find_in(findings_.texts, key) : nullptr;
}

const picture_finding* panel_inspection::find_picture(const element_key& key) const {
    return key.is == element_key::PICTURE ? find_in(findings_.pictures, key) : nullptr;
}

void panel_inspection::point_at(const element_key& key) {
    if (!key.is_same(pointed_) || key.box != pointed_.box) {
        pointed_ = key;
        Q_EMIT pointed_changed();
    }
}

void panel_inspection::mark(const element_key& key) {
    marked_ = key;
    Q_EMIT marked_changed();
}

} // namespace velarion
