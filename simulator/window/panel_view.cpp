#include "panel_view.h"

#include "panel_frame.h"
#include "panel_overlay.h"
#include "units.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPainter>

#include <cmath>

namespace velarion {

namespace {

constexpr int LARGEST_ZOOM = 4;

} // namespace

panel_view::panel_view(panel_frame& panel)
    : panel_(panel)
    , image_(PANEL_SIZE, QImage::Format_RGB32) {
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(PANEL_SIZE / 2);
    panel_.setAttribute(Qt::WA_DontShowOnScreen);
    panel_.installEventFilter(this);
    panel_.show();
}

void panel_view::set_zoom(int zoom) {
    const int bounded = qBound(1, zoom, LARGEST_ZOOM);
    if (bounded != zoom_) {
        zoom_ = bounded;
        updateGeometry();
        update();
        Q_EMIT zoom_changed(zoom_);
    }
}

/** The size of one pixel of the panel in units of the widget: whole pixels of the screen. */
double panel_view::screen_pixels() const {
    return zoom_ / devicePixelRatioF();
}

/** Where the panel's corner stands: on a pixel of the screen, though the view itself may stand between two.
 */
QPointF panel_view::corner() const {
    const double ratio = devicePixelRatioF();
    const QPoint origin = mapTo(window(), QPoint());
    const auto place = [ratio, this](int from, int room, int size) {
        return std::round((from + (room - size * screen_pixels()) / 2) * ratio) / ratio - from;
    };
    return {place(origin.x(), width(), PANEL_SIZE.width()), place(origin.y(), height(), PANEL_SIZE.height())};
}

QPoint panel_view::panel_place(const QPoint& place) const {
    const QPointF away = (QPointF(place) - corner()) / screen_pixels();
    return {static_cast<int>(std::floor(away.x())), static_cast<int>(std::floor(away.y()))};
}

QRect panel_view::view_box(const QRect& panel_box) const {
    const double scale = screen_pixels();
    return QRectF(corner() + QPointF(panel_box.topLeft()) * scale, QSizeF(panel_box.size()) * scale)
        .toAlignedRect();
}

void panel_view::set_overlay(panel_overlay* overlay) {
    overlay_ = overlay;
    update();
}

QSize panel_view::sizeHint() const {
    const QSizeF size = QSizeF(PANEL_SIZE) * screen_pixels();
    return {static_cast<int>(std::ceil(size.width())), static_cast<int>(std::ceil(size.height()))};
}

QImage panel_view::picture() {
    if (is_stale_) {
        is_stale_ = false;
        panel_.render(&image_);
    }
    return image_;
}

bool panel_view::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::UpdateRequest || event->type() == QEvent::LayoutRequest) {
        is_stale_ = true;
        update();
    }
    return QWidget::eventFilter(watched, event);
}

/** Tab belongs to the panel. */
bool panel_view::event(QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab) {
            send_key(key);
            return true;
        }
    }
    return QWidget::event(event);
}

void panel_view::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.drawImage(QRectF(corner(), QSizeF(PANEL_SIZE) * screen_pixels()), picture());
    if (overlay_) {
        painter.translate(corner());
        painter.scale(screen_pixels(), screen_pixels());
        painter.setClipRect(panel_.rect());
        overlay_->draw(painter);
    }
}

/** What is pressed gets every movement until it is released, as under a finger; a second quick press is one
 * too.
 */
void panel_view::send_mouse(QMouseEvent* event) {
    const bool is_press =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (event->type() != QEvent::MouseMove && event->button() != Qt::LeftButton) {
        return;
    }
    const QPoint place = panel_place(event->pos());
    if (is_press) {
        QWidget* child = panel_.rect().contains(place) ? panel_.childAt(place) : nullptr;
        pressed_ = child;
        if (child && (child->focusPolicy() & Qt::ClickFocus) != 0) {
            child->setFocus(Qt::MouseFocusReason);
        }
    }
    if (pressed_) {
        QMouseEvent inner(is_press ? QEvent::MouseButtonPress : event->type(),
                          pressed_->mapFrom(&panel_, place), event->button(), event->buttons(),
                          event->modifiers());
        QCoreApplication::sendEvent(pressed_, &inner);
    }
    if (event->type() == QEvent::MouseButtonRelease) {
        pressed_ = nullptr;
    }
}

void panel_view::mousePressEvent(QMouseEvent* event) {
    send_mouse(event);
}

void panel_view::mouseMoveEvent(QMouseEvent* event) {
    send_mouse(event);
}

void panel_view::mouseReleaseEvent(QMouseEvent* event) {
    send_mouse(event);
}

void panel_view::turn_zoom(int wheel) {
    set_zoom(zoom_ + (wheel > 0) - (wheel < 0));
}

void panel_view::wheelEvent(QWheelEvent* event) {
    if ((event->modifiers() & Qt::ControlModifier) != 0) {
        turn_zoom(event->angleDelta().y());
        return;
    }
    const QPoint place = panel_place(event->position().toPoint());
    if (QWidget* child = panel_.childAt(place)) {
        QWheelEvent inner(child->mapFrom(&panel_, place), event->globalPosition(), event->pixelDelta(),
                          event->angleDelta(), event->buttons(), event->modifiers(), event->phase(),
                          event->inverted());
        QCoreApplication::sendEvent(child, &inner);
    }
}

void panel_view::send_key(QKeyEvent* event) {
    QWidget* target = panel_.focusWidget() ? panel_.focusWidget() : &panel_;
    QKeyEvent inner(event->type(), event->key(), event->modifiers(), event->text(), event->isAutoRepeat());
    QCoreApplication::sendEvent(target, &inner);
}

void panel_view::keyPressEvent(QKeyEvent* event) {
    send_key(event);
}

void panel_view::keyReleaseEvent(QKeyEvent* event) {
    send_key(event);
}

} // namespace velarion
