#include "panel_frame.h"

#include "focus_ring.h"
#include "hard_key.h"
#include "machine_state.h"
#include "navigation_bar.h"
#include "panel_button.h"
#include "panel_dialog.h"
#include "panel_element.h"
#include "sleep_cover.h"
#include "stop_question.h"
#include "theme.h"
#include "title_bar.h"
#include "units.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

namespace velarion {

namespace {

struct screen_key {
    int key;
    const char* screen;
};

constexpr screen_key SCREEN_KEYS[] = {{KEY_COPY, "copy"},     {KEY_SCAN, "scan"},
                                      {KEY_FAX, "fax"},       {KEY_DOCUMENTS, "documents"},
                                      {KEY_STATUS, "status"}, {KEY_HELP, "help"}};

void add_tab_stops(QWidget& widget, const QWidget& panel, QList<QWidget*>& stops);

void add_tab_stops(const QLayout& layout, const QWidget& panel, QList<QWidget*>& stops) {
    for (int i = 0; i < layout.count(); ++i) {
        QLayoutItem* item = layout.itemAt(i);
        if (item->widget()) {
            add_tab_stops(*item->widget(), panel, stops);
        } else if (item->layout()) {
            add_tab_stops(*item->layout(), panel, stops);
        }
    }
}

/** What takes the focus, in the order in which it stands on the panel: that of the layouts. */
void add_tab_stops(QWidget& widget, const QWidget& panel, QList<QWidget*>& stops) {
    if (widget.isEnabled() && widget.isVisibleTo(&panel) && (widget.focusPolicy() & Qt::TabFocus) != 0) {
        stops.append(&widget);
    }
    if (widget.layout()) {
        add_tab_stops(*widget.layout(), panel, stops);
    } else {
        for (QWidget* child : widget.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            add_tab_stops(*child, panel, stops);
        }
    }
}

QList<QWidget*> tab_stops(QWidget& area, const QWidget& panel) {
    QList<QWidget*> stops;
    add_tab_stops(area, panel, stops);
    return stops;
}

bool is_primary(const QWidget* widget) {
    const auto* button = dynamic_cast<const panel_button*>(widget);
    return button && button->is_primary();
}

} // namespace

panel_frame::panel_frame(const panel_services& services, const std::vector<screen_entry>& screens)
    : services_(services)
    , screens_(screens)
    , title_(new title_bar(services.machine))
    , navigation_(new navigation_bar(services.machine))
    , content_(new QWidget) {
    setFixedSize(PANEL_SIZE);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(title_);
    layout->addWidget(content_, 1);
    layout->addWidget(navigation_);
    new QVBoxLayout(content_);
    content_->layout()->setContentsMargins(0, 0, 0, 0);
    connect(title_, &title_bar::back_wanted, this, &panel_frame::back);
    connect(title_, &title_bar::status_wanted, this, [this] { open(QStringLiteral("status")); });
    connect(navigation_, &navigation_bar::chosen, this, [this](const QString& screen) {
        go_home();
        open(screen);
    });
    new sleep_cover(services.machine, this);
    QCoreApplication::instance()->installEventFilter(this);
    go_home();
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
    close_dialog();
    if (screen_) {
        content_->layout()->removeWidget(screen_);
        screen_->hide();
        screen_->deleteLater(); // one of its own buttons may have asked for the other screen
        screen_->setParent(nullptr);
    }
    screen_ = find_screen(names_.last())->make({services_, *this});
    content_->layout()->addWidget(screen_);
    screen_->show(); // the layout would do it later: what is hidden takes no focus
    title_->set_title(screen_->title(), names_.size() > 1);
    navigation_->set_current(names_.value(1, names_.first()));
    focus_first(*screen_);
    Q_EMIT screen_changed(names_.last());
}

void panel_frame::show_dialog(panel_dialog* shown) {
    close_dialog();
    dialog_ = shown;
    dialog_->setParent(this);
    dialog_->setGeometry(rect());
    dialog_->show();
    dialog_->raise();
    connect(dialog_, &panel_dialog::left, this, [this] { close_dialog(); });
    focus_before_dialog_ = focusWidget();
    focus_first(*dialog_);
}

void panel_frame::close_dialog() {
    if (!dialog_) {
        return;
    }
    dialog_->hide();
    dialog_->deleteLater(); // one of its own buttons may have closed it
    dialog_->setParent(nullptr);
    dialog_ = nullptr;
    if (focus_before_dialog_ && focus_before_dialog_->isEnabled() &&
        focus_before_dialog_->isVisibleTo(this)) {
        focus_before_dialog_->setFocus(Qt::OtherFocusReason);
    } else {
        focus_first(*screen_);
    }
}

/** Gives the focus to what does a screen's work, else to the first widget of the area that takes it. */
void panel_frame::focus_first(QWidget& area) {
    const QList<QWidget*> widgets = tab_stops(area, *this);
    const auto primary = std::find_if(widgets.begin(), widgets.end(), is_primary);
    QWidget* first = &area == screen_ && primary != widgets.end() ? *primary : widgets.value(0);
    if (first) {
        first->setFocus(Qt::TabFocusReason);
    }
    update();
}

/** Notices whether the panel is worked by keys or by touch, whatever widget gets them. */
bool panel_frame::eventFilter(QObject* watched, QEvent* event) {
    const bool is_key = event->type() == QEvent::KeyPress;
    if (is_key || event->type() == QEvent::MouseButtonPress) {
        auto* widget = qobject_cast<QWidget*>(watched);
        if (widget && widget->window() == this) {
            set_worked_by_keys(*this, is_key);
        }
    }
    return QWidget::eventFilter(watched, event);
}

/** From the top of the panel to its bottom, whatever was made last; a dialog keeps the focus. */
bool panel_frame::focusNextPrevChild(bool is_forward) {
    const QList<QWidget*> widgets =
        dialog_ ? tab_stops(*dialog_, *this)
                : tab_stops(*title_, *this) + tab_stops(*content_, *this) + tab_stops(*navigation_, *this);
    if (!widgets.isEmpty()) {
        const int all = widgets.size();
        const int place = widgets.indexOf(focusWidget());
        // What had the focus may just have been disabled: it stays on the screen.
        const QList<QWidget*> inner = place < 0 && !dialog_ ? tab_stops(*content_, *this) : widgets;
        QWidget* next =
            place < 0 ? inner.value(0, widgets[0]) : widgets[(place + (is_forward ? 1 : all - 1)) % all];
        next->setFocus(is_forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    }
    update();
    return true;
}

void panel_frame::take_key(int key) {
    machine_state& machine = services_.machine;
    if (machine.condition() == machine_condition::ASLEEP) {
        machine.set_asleep(false);
        return;
    }
    if (dialog_) {
        dialog_->take_key(key);
        return;
    }
    if (screen_->take_key(key)) {
        return;
    }
    for (const screen_key& entry : SCREEN_KEYS) {
        if (entry.key == key) {
            go_home();
            open(QLatin1String(entry.screen));
            return;
        }
    }
    if (key == KEY_HOME) {
        go_home();
    } else if (key == KEY_BACK) {
        back();
    } else if (key == KEY_STOP) {
        ask_to_stop(*this, machine);
    } else {
        machine.take_key(key);
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
}

} // namespace velarion
