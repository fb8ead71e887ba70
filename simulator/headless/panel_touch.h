#ifndef PANEL_TOUCH_H
#define PANEL_TOUCH_H

#include <QPoint>
#include <QString>
#include <QStringList>

class QWidget;

namespace velarion {

/**
 * Finds what a person could touch, by its name: a button, or a row of a list, which is scrolled to it.
 *
 * @param place  receives its middle, px from the panel's corner
 * @return the fault: nothing of the name is seen, it is disabled, or something lies above it; or an empty
 * text
 */
QString find_touchable(QWidget& panel, const QString& name, QPoint& place);

/** The names of everything that can be touched now. */
QStringList touchable_names(const QWidget& panel);

/** A finger comes down on the panel and leaves it. */
void touch_panel(QWidget& panel, const QPoint& place);

} // namespace velarion

#endif
