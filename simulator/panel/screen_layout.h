#ifndef SCREEN_LAYOUT_H
#define SCREEN_LAYOUT_H

#include <initializer_list>

class QBoxLayout;
class QWidget;

namespace velarion {

/** Parts one below the other, with the margins of a screen. */
QBoxLayout* lay_out_column(QWidget& screen, std::initializer_list<QWidget*> parts);

/** Parts side by side, without margins. */
QWidget* make_row(std::initializer_list<QWidget*> parts);

} // namespace velarion

#endif
