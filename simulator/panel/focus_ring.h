#ifndef FOCUS_RING_H
#define FOCUS_RING_H

class QPainter;
class QRect;
class QWidget;

namespace velarion {

/** Whether a panel is worked by keys at the moment: what is touched needs no ring. */
void set_worked_by_keys(QWidget& widget, bool is_worked_by_keys);

/** Draws the ring around a box of the widget that has the focus of its panel, while that is worked by keys.
 */
void draw_focus_ring(QPainter& painter, const QWidget& widget, const QRect& box);

} // namespace velarion

#endif
