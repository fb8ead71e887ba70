#ifndef SOFT_KEYBOARD_H
#define SOFT_KEYBOARD_H

#include "keyboard_input.h"

#include <QPointer>
#include <QWidget>

namespace velarion {

class key_button;
class key_popup;

/**
 * The keys of the layer in force. They stand where the file says, from left to right in every language: a
 * keyboard for Hebrew has its keys where that for Latin letters has them.
 */
class soft_keyboard : public QWidget {
    Q_OBJECT

public:
    /** @param input  that the keys change, outlives it */
    explicit soft_keyboard(keyboard_input& input);

    /** Shows the input as it is: its keyboards are others. */
    void reload();
    /** A tenth of a second: a key that is down long enough offers more. */
    void step();
    /** A key of a workstation went down: it types too. @return whether there was a use for it */
    bool take_pc_key(const QKeyEvent& event);
    /** Offers what a key has when it is held: characters, keyboards of {next}; locks {shift}. */
    void hold(key_button& key);

Q_SIGNALS:
    /** The text or its cursor may be others. */
    void changed();
    /** {enter} was tapped. */
    void entered();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void make_keys();
    QPoint focused_key() const;
    void add_key(const keyboard_key& key, std::size_t row);
    void place_keys();
    void tap(const keyboard_key& key);
    void take_change();
    void offer(key_button& key, key_popup* popup);
    void close_popup();
    bool move_focus(int key);

    keyboard_input& input_;
    std::vector<std::vector<key_button*>> rows_;
    int shown_board_ = -1;
    QString shown_layer_;
    QPointer<key_button> down_;
    int steps_down_ = 0;
    QPointer<key_popup> popup_;
    QPointer<key_button> opener_; ///< had the focus when the popup came
};

} // namespace velarion

#endif
