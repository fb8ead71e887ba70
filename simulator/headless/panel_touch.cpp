#include "panel_touch.h"

#include "panel_list.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QWidget>

namespace velarion {

namespace {

void send_mouse(QWidget* target, QWidget& panel, QEvent::Type type, const QPoint& place) {
    const Qt::MouseButtons held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
    QMouseEvent event(type, target->mapFrom(&panel, place), Qt::LeftButton, held, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &event);
}

template <class WIDGET> QList<WIDGET*> seen_widgets(const QWidget& panel) {
    QList<WIDGET*> seen;
    for (WIDGET* widget : panel.findChildren<WIDGET*>()) {
        if (widget->isVisibleTo(&panel) && !widget->size().isEmpty()) {
            seen.append(widget);
        }
    }
    return seen;
}

QString check_place(const QWidget& panel, const QWidget* widget, const QString& name, const QPoint& place) {
    if (!widget->isEnabled()) {
        return QStringLiteral("\"%1\" is disabled").arg(name);
    }
    const QWidget* top = panel.childAt(place);
    if (top != widget && !(top && widget->isAncestorOf(top))) {
        return QStringLiteral("something lies above \"%1\"").arg(name);
    }
    return {};
}

} // namespace

QString find_touchable(QWidget& panel, const QString& name, QPoint& place) {
    for (QAbstractButton* button : seen_widgets<QAbstractButton>(panel)) {
        if (button->objectName() == name) {
            place = button->mapTo(&panel, button->rect().center());
            return check_place(panel, button, name, place);
        }
    }
    for (panel_list* list : seen_widgets<panel_list>(panel)) {
        const int row = list->find_row(name);
        if (row >= 0) {
            place = list->mapTo(&panel, list->show_row(row).center());
            return check_place(panel, list, name, place);
        }
    }
    return QStringLiteral("there is no \"%1\" to touch; there are %2")
        .arg(name, touchable_names(panel).join(QLatin1String(", ")));
}

QStringList touchable_names(const QWidget& panel) {
    QStringList names;
    for (const QAbstractButton* button : seen_widgets<QAbstractButton>(panel)) {
        if (!button->objectName().isEmpty() && button->isEnabled()) {
            names.append(button->objectName());
        }
    }
    for (const panel_list* list : seen_widgets<panel_list>(panel)) {
        names.append(list->row_names());
    }
    return names;
}

void touch_panel(QWidget& panel, const QPoint& place) {
    const QPointer<QWidget> target = panel.childAt(place);
    if (!target) {
        return;
    }
    send_mouse(target, panel, QEvent::MouseButtonPress, place);
    // cppcheck-suppress knownConditionTrueFalse ; the press may destroy it
    if (target) {
        send_mouse(target, panel, QEvent::MouseButtonRelease, place);
    }
}

} // namespace velarion
