#ifndef CARD_H
#define CARD_H

#include "panel_element.h"
#include "picture_block.h"

#include <QWidget>

namespace velarion {

/** A ground that holds together what stands on it. */
class card : public QWidget, public panel_element {
public:
    card();

    void describe(panel_contents& contents) const override;
    void reload() override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    picture_block ground_;
};

} // namespace velarion

#endif
