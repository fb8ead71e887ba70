#include "panel_frame.h"

#include "machine_state.h"
#include "message_label.h"
#include "panel_button.h"
#include "panel_element.h"
#include "theme.h"
#include "units.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

namespace velarion {

namespace {

struct navigation_entry {
    const char* name;
    const char* picture; ///< id
    const char* screen;
};

constexpr navigation_entry NAVIGATION[] = {
    {"nav_home", "3", "home"},    // ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_HOME
    {"nav_jobs", "10", "status"}, // ..._JOB_LIST
    {"nav_trays", "22", "trays"}, // ..._TRAY
    {"nav_settings", "11", "settings"},
};
constexpr char BACK_PICTURE[] = "30"; // ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_BACK

} // namespace

panel_frame::panel_frame(const panel_services& services, const std::vector<screen_entry>& screens)
    : services_(services)
    , screens_(screens) {
    setFixedSize(PANEL_SIZE);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(make_title_bar());
    content_ = new QWidget;
    new QVBoxLayout(content_);
    content_->layout()->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(content_, 1);
    layout->addWidget(make_navigation());
    go_home();
}

QWidget* panel_frame::make_title_bar() {
    auto* bar = new QWidget;
    bar->setFixedHeight(px(grid::title_bar));
    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins(px(grid::margin), 0, px(grid::margin), 0);
    layout->setSpacing(px(grid::space));
    back_ = new panel_button("back", button_form::PICTURE, {}, BACK_PICTURE);
    back_->set_ground(false);
    connect(back_, &QAbstractButton::clicked, this, [this] { back(); });
    title_ = new message_label(text_role::TITLE);
    layout->addWidget(back_);
    layout->addWidget(title_, 1);
    return bar;
}

QWidget* panel_frame::make_navigation() {
    auto* bar = new QWidget;
    bar->setFixedHeight(px(grid::navigation));
    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins(px(grid::margin), 0, px(grid::margin), 0);
    layout->setSpacing(px(grid::space));
    for (const navigation_entry& entry : NAVIGATION) {
        auto* button = new panel_button(entry.name, button_form::PICTURE, {}, entry.picture);
        button->set_ground(false);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        const QString screen = QLatin1String(entry.screen);
        connect(button, &QAbstractButton::clicked, this, [this, screen] {
            go_home();
            open(screen);
        });
        layout->addWidget(button);
    }
    return bar;
}

const screen_entry* panel_frame::find_screen(const QString& name) const {
    for (const screen_entry& entry : screens_) {
        if (name == QLatin1String(entry.name)) {
            return &entry;
        }
    }
    return nullptr;
}

bool panel_frame::open(const QString& name) {
    if (!find_screen(name)) {
        return false;
    }
    if (names_.last() != name) {
        names_.append(name);
        show_screen();
    }
    return true;
}

void panel_frame::back() {
    if (names_.size() > 1) {
        names_.removeLast();
        show_screen();
    }
}

void panel_frame::go_home() {
    if (names_.size() != 1) {
        names_ = QStringList{QLatin1String(screens_.front().name)};
        show_screen();
    }
}

void panel_frame::ask_text(const text_request& request) {
    asked_text_ = request;
    open(QStringLiteral("keyboard"));
}

void panel_frame::show_screen() {
    if (screen_) {
        content_->layout()->removeWidget(screen_);
        screen_->hide();
        screen_->deleteLater(); // one of its own buttons may have asked for the other screen
        screen_->setParent(nullptr);
    }
    screen_ = find_screen(names_.last())->make({services_, *this});
    content_->layout()->addWidget(screen_);
    title_->set_message(screen_->title());
    back_->setVisible(names_.size() > 1);
    Q_EMIT screen_changed(names_.last());
}

void panel_frame::take_key(int key) {
    if (!screen_->take_key(key)) {
        services_.machine.take_key(key);
    }
}

void panel_frame::reload() {
    reload_panel(*this);
}

void panel_frame::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange) {
        reload();
    }
    QWidget::changeEvent(event);
}

void panel_frame::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), colors::background);
    painter.fillRect(QRect(0, 0, width(), px(grid::title_bar)), colors::surface);
    painter.fillRect(QRect(0, height() - px(grid::navigation), width(), px(grid::navigation)),
                     colors::surface);
}

} // namespace velarion
