#include "focus_ring.h"

#include "theme.h"

#include <QPainter>
#include <QVariant>
#include <QWidget>

namespace velarion {

namespace {

constexpr char PROPERTY[] = "is_worked_by_keys";
constexpr double INSET = 3.5;  // px
constexpr double RADIUS = 6.0; // px

} // namespace

void set_worked_by_keys(QWidget& widget, bool is_worked_by_keys) {
    QWidget* panel = widget.window();
    if (panel->property(PROPERTY).toBool() != is_worked_by_keys) {
        panel->setProperty(PROPERTY, is_worked_by_keys);
        panel->update();
    }
}

void draw_focus_ring(QPainter& painter, const QWidget& widget, const QRect& box) {
    const QWidget* panel = widget.window();
    if (panel->focusWidget() != &widget || !panel->property(PROPERTY).toBool()) {
        return;
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colors::text, 2));
    painter.drawRoundedRect(QRectF(box).adjusted(INSET, INSET, -INSET, -INSET), RADIUS, RADIUS);
    painter.restore();
}

} // namespace velarion
