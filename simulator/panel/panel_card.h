#ifndef PANEL_CARD_H
#define PANEL_CARD_H

#include <QWidget>

class QVBoxLayout;

namespace velarion {

/** A surface that holds what belongs together, from top to bottom. */
class panel_card : public QWidget {
public:
    panel_card();
    /** Its layout, with the margins of the grid. */
    QVBoxLayout& column() const;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace velarion

#endif
