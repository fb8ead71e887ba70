#ifndef HARD_KEY_BUTTON_H
#define HARD_KEY_BUTTON_H

#include "hard_key.h"

#include <QAbstractButton>

namespace velarion {

/** A hard key on the device's face; its press and its release are signals of QAbstractButton. */
class hard_key_button : public QAbstractButton {
public:
    explicit hard_key_button(const hard_key_entry& entry);

    int key() const { return key_; }
    /** Shows it held down by another hand: a PC key, or another program. */
    void show_held(bool is_held);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const int key_;
    bool is_held_ = false;
};

} // namespace velarion

#endif
