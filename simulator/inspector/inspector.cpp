#include "inspector.h"

#include "cache_tab.h"
#include "element_tab.h"
#include "findings_tab.h"
#include "panel_view.h"
#include "record_tab.h"
#include "search_tab.h"
#include "simulation.h"
#include "view_controls.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QShortcut>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace velarion {

namespace {

// Small enough to stand beside the panel on a screen of 1280 x 800.
constexpr char STYLE[] =
    "QWidget { font-size: 12px; }"
    "QTabBar::tab { font-size: 11px; padding: 6px 5px; background: transparent; border: none;"
    " border-bottom: 2px solid #3c4047; color: #a4aab3; }"
    "QTabBar::tab:hover { color: #e6e8eb; }"
    "QTabBar::tab:selected { color: white; border-bottom-color: #7cbdff; }"
    "QTabBar::tab:focus { background: #3c4047; }"
    "QToolButton { padding: 4px 10px; background: #3c4047; border: 1px solid #55595f; border-radius: 3px; }"
    "QToolButton:hover, QToolButton:focus { border-color: #7cbdff; }"
    "QToolButton:checked { background: #2f6fb2; color: white; }"
    "QHeaderView::section { padding: 3px 5px; background: #3c4047; border: none;"
    " border-right: 1px solid #55595f; }"
    "QTreeView::item { padding: 2px; }"
    "QComboBox { combobox-popup: 0; }" // a list below the field
    "QComboBox QAbstractItemView::item { padding: 3px; }"
    "QPushButton { padding: 3px 4px; }";
constexpr int NEWS_TIME = 4000; // ms

QToolButton* new_toggle(const QString& text, const QString& hint, const QKeySequence& shortcut) {
    auto* button = new QToolButton;
    button->setText(text);
    button->setCheckable(true);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setShortcut(shortcut);
    button->setToolTip(QStringLiteral("%1 (%2)").arg(hint, shortcut.toString(QKeySequence::NativeText)));
    return button;
}

} // namespace

inspector::inspector(const inspector_parts& parts)
    : parts_(parts)
    , view_(&parts_.view)
    , inspection_(parts_.panel)
    , index_(parts_.panel, inspection_.examiner())
    , overlay_(inspection_)
    , controls_(new view_controls(parts_.panel))
    , tabs_(new QTabWidget) {
    setLayoutDirection(Qt::LeftToRight);
    setMinimumWidth(360);
    setStyleSheet(QLatin1String(STYLE));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->addWidget(make_head());
    layout->addWidget(controls_);
    layout->addWidget(tabs_, 1);
    make_tabs();
    parts_.view.setMouseTracking(true);
    parts_.view.installEventFilter(this);
    parts_.view.set_overlay(&overlay_);
    const auto repaint = [this] { parts_.view.update(); };
    connect(&inspection_, &panel_inspection::pointed_changed, this, repaint);
    connect(&inspection_, &panel_inspection::marked_changed, this, repaint);
    auto* find = new QShortcut(QKeySequence::Find, this);
    find->setContext(Qt::WindowShortcut);
    connect(find, &QShortcut::activated, this, &inspector::begin_search);
    index_.begin();
}

inspector::~inspector() {
    if (view_) {
        view_->set_overlay(nullptr);
    }
}

QWidget* inspector::make_head() {
    auto* head = new QWidget;
    auto* layout = new QHBoxLayout(head);
    layout->setContentsMargins(0, 0, 0, 0);
    inspects_ = new_toggle(QStringLiteral("Inspect"),
                           QStringLiteral("A click on the panel copies the id instead of touching"),
                           QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_I));
    overlays_ =
        new_toggle(QStringLiteral("Overlay"), QStringLiteral("Shows boxes and findings above the panel"),
                   QKeySequence(Qt::CTRL | Qt::Key_B));
    news_ = new QLabel;
    news_->setTextFormat(Qt::PlainText);
    layout->addWidget(inspects_);
    layout->addWidget(overlays_);
    layout->addWidget(news_, 1);
    connect(inspects_, &QToolButton::toggled, this, [this](bool is_on) {
        parts_.view.setCursor(is_on ? Qt::CrossCursor : Qt::ArrowCursor);
        is_pinned_ = false;
    });
    connect(overlays_, &QToolButton::toggled, this, [this](bool is_on) {
        overlay_.show_findings(is_on);
        parts_.view.update();
    });
    return head;
}

void inspector::make_tabs() {
    element_ = new element_tab(inspection_);
    search_ = new search_tab(index_);
    auto* findings = new findings_tab(index_);
    auto* hardware = new hardware_tab(parts_.link, parts_.run_service);
    messages_ = new record_tab(
        {QStringLiteral("Time"), QStringLiteral("Message"), QStringLiteral("Result"), QStringLiteral("ms")},
        1);
    traces_ = new record_tab({QStringLiteral("Time"), QStringLiteral("Trace")}, 1);
    const auto add = [this](QWidget* tab, const char* title) {
        tab->layout()->setContentsMargins(6, 8, 6, 6);
        tabs_->addTab(tab, QLatin1String(title));
    };
    add(element_, "Element");
    add(search_, "Search");
    add(findings, "Findings");
    add(new cache_tab, "Cache");
    add(hardware, "Device");
    add(messages_, "Messages");
    add(traces_, "Traces");
    tabs_->setUsesScrollButtons(true);
    tabs_->setDocumentMode(true);
    connect(element_, &element_tab::told, this, &inspector::tell);
    connect(hardware, &hardware_tab::told, this, &inspector::tell);
    connect(search_, &search_tab::chosen, this, &inspector::jump);
    connect(findings, &findings_tab::chosen, this, &inspector::jump);
}

void inspector::set_inspecting(bool is_on) {
    inspects_->setChecked(is_on);
}

void inspector::show_overlay(bool is_shown) {
    overlays_->setChecked(is_shown);
}

void inspector::look_again() {
    inspection_.examiner().clear();
    inspection_.refresh();
    parts_.view.update();
    index_.begin();
}

void inspector::choose_direction(const QString& direction) {
    controls_->choose_direction(direction);
}

void inspector::begin_search() {
    tabs_->setCurrentWidget(search_);
    search_->focus_field();
}

void inspector::tell(const QString& text) {
    news_->setText(text);
    QTimer::singleShot(NEWS_TIME, news_, [this, text] {
        if (news_->text() == text) {
            news_->clear();
        }
    });
}

void inspector::jump(const QString& view, const element_key& key) {
    if (!open_view(parts_.panel, view)) {
        tell(QStringLiteral("There is no screen %1").arg(view));
        return;
    }
    parts_.view.picture(); // lays the screen out
    inspection_.refresh();
    inspection_.mark(key);
    if (key.is != element_key::NONE) {
        inspection_.point_at(key);
    }
}

/** @return whether it is none of the panel's business */
bool inspector::take_click(const QPoint& place, Qt::KeyboardModifiers modifiers) {
    if (!inspects_->isChecked() && (modifiers & Qt::ControlModifier) == 0) {
        return false;
    }
    const element_key key = inspection_.element_at(place);
    is_pinned_ = key.is != element_key::NONE;
    inspection_.point_at(key);
    tabs_->setCurrentWidget(element_);
    element_->copy_id(key);
    return true;
}

bool inspector::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseMove) {
        const auto* mouse = static_cast<const QMouseEvent*>(event);
        if (mouse->buttons() == Qt::NoButton && !is_pinned_) {
            inspection_.point_at(inspection_.element_at(parts_.view.panel_place(mouse->pos())));
        }
    } else if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick) {
        const auto* mouse = static_cast<const QMouseEvent*>(event);
        takes_release_ = take_click(parts_.view.panel_place(mouse->pos()), mouse->modifiers());
        return takes_release_;
    } else if (event->type() == QEvent::MouseButtonRelease && takes_release_) {
        takes_release_ = false;
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace velarion
