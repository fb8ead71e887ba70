#ifndef STATUS_PILL_H
#define STATUS_PILL_H

#include "panel_element.h"
#include "picture_block.h"
#include "text_block.h"

#include <QAbstractButton>

namespace velarion {

class machine_state;

/** Tells what the machine does; a fault stands out. */
class status_pill : public QAbstractButton, public panel_element {
public:
    /** @param machine  outlives it */
    explicit status_pill(const machine_state& machine);

    QSize sizeHint() const override;
    void describe(panel_contents& contents) const override;
    void reload() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void refresh();
    QRect pill_box() const;
    QRect picture_box() const;
    QRect text_box() const;

    const machine_state& machine_;
    picture_block picture_;
    text_block text_;
    QColor color_;
    bool is_fault_ = false;
};

} // namespace velarion

#endif
