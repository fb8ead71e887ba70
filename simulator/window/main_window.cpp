#include "main_window.h"

#include "device_face.h"
#include "device_link.h"
#include "hard_key.h"
#include "panel_view.h"
#include "service_keeper.h"
#include "simulation.h"

#include <QApplication>
#include <QDockWidget>
#include <QFileDialog>
#include <QLabel>
#include <QLayout>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QStatusBar>
#include <QWheelEvent>
#include <QWindow>

namespace velarion {

namespace {

constexpr int MACHINE_STEP = 100; // ms
constexpr int TEXT_REFRESH = 500;
constexpr int NEWS = 6000; // ms
constexpr int SLACK = 8;   // px, so that no scroll bar is needed

/** Ground of the status line's text: dark enough for white, or light enough for black. */
QString colors_of(service_condition condition, bool is_back) {
    switch (condition) {
    case service_condition::RUNNING:
        return is_back ? QStringLiteral("background: #1d7446; color: white") : QString();
    case service_condition::STARTING:
    case service_condition::SLOW:
        return QStringLiteral("background: #ffd98a; color: black");
    default:
        return QStringLiteral("background: #a83535; color: white");
    }
}

/** Wants to show the whole device. */
class face_area : public QScrollArea {
public:
    QSize sizeHint() const override { return widget() ? widget()->minimumSize() : QScrollArea::sizeHint(); }
};

} // namespace

main_window::main_window(const window_parts& parts)
    : parts_(parts)
    , keys_(*this, [this](int key, bool is_pressed) { parts_.link.move_key(key, is_pressed); }) {
    setWindowTitle(QStringLiteral("Panel simulator"));
    setLayoutDirection(Qt::LeftToRight); // the language of the panel turns the panel alone
    view_ = new panel_view(parts_.panel.panel());
    face_ = new device_face(view_, parts_.link);
    area_ = new face_area;
    area_->setWidget(face_);
    area_->setWidgetResizable(true);
    area_->setFrameShape(QFrame::NoFrame);
    area_->setFocusPolicy(Qt::NoFocus);
    setCentralWidget(area_);
    make_status_line();
    add_window_menus(*this, parts_);
    connect(view_, &panel_view::zoom_changed, this, [this] { fit_screen(); });
    connect(&machine_clock_, &QTimer::timeout, &parts_.panel, [this] { parts_.panel.machine().step(); });
    machine_clock_.start(MACHINE_STEP);
    view_->setFocus();
    fit_screen();
}

void main_window::make_status_line() {
    service_text_ = new QLabel;
    service_text_->setContentsMargins(8, 2, 8, 2);
    view_text_ = new QLabel;
    news_text_ = new QLabel;
    news_text_->setTextFormat(Qt::PlainText);
    news_text_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a long name widens nothing
    news_text_->hide();
    statusBar()->addWidget(service_text_, 1);
    statusBar()->addPermanentWidget(news_text_, 1);
    statusBar()->addPermanentWidget(view_text_);
    connect(&parts_.link.watch(), &service_watch::changed, this, &main_window::show_service);
    connect(&parts_.service, &service_keeper::failed, this, &main_window::tell);
    connect(&service_clock_, &QTimer::timeout, this, &main_window::show_service);
    service_clock_.start(TEXT_REFRESH);
    news_clock_.setSingleShot(true);
    news_clock_.setInterval(NEWS);
    connect(&news_clock_, &QTimer::timeout, news_text_, &QWidget::hide);
    show_service();
}

void main_window::show_service() {
    const service_watch& watch = parts_.link.watch();
    const QString colors = colors_of(watch.condition(), watch.is_just_back());
    service_text_->setText(watch.text());
    if (service_text_->styleSheet() != colors) {
        service_text_->setStyleSheet(colors);
    }
    view_text_->setText(
        QStringLiteral("%1   zoom %2").arg(parts_.panel.panel().screen_name()).arg(view_->zoom()));
}

void main_window::tell(const QString& text) {
    news_text_->setText(text);
    news_text_->setToolTip(text.toHtmlEscaped());
    news_text_->show();
    news_clock_.start();
}

void main_window::set_side_bar(QWidget* side_bar) {
    if (!side_bar_) {
        side_bar_ = new QDockWidget(QStringLiteral("Inspector"), this);
        side_bar_->setObjectName(QStringLiteral("side_bar"));
        side_bar_->setLayoutDirection(Qt::LeftToRight);
        addDockWidget(Qt::RightDockWidgetArea, side_bar_);
    }
    delete side_bar_->widget();
    side_bar_->setWidget(side_bar);
    fit_screen();
}

void main_window::show_side_bar(bool is_shown) {
    if (side_bar_) {
        side_bar_->setVisible(is_shown);
    }
}

/** As large as the device with its side bar needs, within the screen. */
void main_window::fit_screen() {
    for (QWidget* widget : face_->findChildren<QWidget*>()) {
        widget->ensurePolished();
    }
    face_->layout()->invalidate();
    face_->setMinimumSize(face_->layout()->sizeHint());
    if (!isMaximized() && !isFullScreen()) {
        area_->updateGeometry();
        layout()->invalidate();
        resize((sizeHint() + QSize(SLACK, SLACK)).boundedTo(screen()->availableSize()));
    }
    show_service();
}

void main_window::save_screenshot() {
    const QString file =
        QFileDialog::getSaveFileName(this, QStringLiteral("Save a picture of the panel"),
                                     QStringLiteral("panel.png"), QStringLiteral("Pictures (*.png)"));
    if (!file.isEmpty()) {
        tell(view_->picture().save(file) ? QStringLiteral("Saved %1").arg(file)
                                         : QStringLiteral("%1 cannot be written").arg(file));
    }
}

void main_window::show_keys() {
    QString rows;
    for (const hard_key_entry& entry : hard_keys()) {
        rows += QStringLiteral("<tr><td>%1&nbsp;&nbsp;</td><td>%2</td></tr>")
                    .arg(QLatin1String(entry.label), pc_key_text(entry.key));
    }
    auto* box = new QMessageBox(QMessageBox::NoIcon, QStringLiteral("Keys of the device"),
                                QStringLiteral("<table>%1</table>").arg(rows), QMessageBox::Close, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

void main_window::go_to_next_pane() {
    QWidget* const focus = QApplication::focusWidget();
    QWidget* const side = side_bar_ && side_bar_->isVisible() ? side_bar_->widget() : nullptr;
    if (focus == view_ || !focus) {
        face_->findChild<QWidget*>(QStringLiteral("key_home"))->setFocus(Qt::TabFocusReason);
    } else if (side && face_->isAncestorOf(focus)) {
        side->setFocus(Qt::TabFocusReason);
        if (!side->hasFocus() && side->nextInFocusChain()) {
            side->nextInFocusChain()->setFocus(Qt::TabFocusReason);
        }
    } else {
        view_->setFocus(Qt::TabFocusReason);
    }
}

bool main_window::event(QEvent* event) {
    const bool is_done = QMainWindow::event(event);
    if (event->type() == QEvent::Polish) {
        fit_screen(); // fonts are known from here on
    }
    if (event->type() == QEvent::UpdateRequest && !has_painted_ && isVisible()) {
        has_painted_ = true;
        Q_EMIT first_frame_shown();
    }
    return is_done;
}

void main_window::wheelEvent(QWheelEvent* event) {
    if ((event->modifiers() & Qt::ControlModifier) != 0) {
        view_->turn_zoom(event->angleDelta().y());
    }
}

} // namespace velarion
