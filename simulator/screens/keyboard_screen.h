#ifndef KEYBOARD_SCREEN_H
#define KEYBOARD_SCREEN_H

#include "keyboard_input.h"
#include "panel_screen.h"
#include "text_request.h"

namespace velarion {

class message_label;
class panel_button;
class soft_keyboard;
class text_field;

/** The soft keyboard of the language, for the text that the frame was asked for. */
class keyboard_screen : public panel_screen {
public:
    explicit keyboard_screen(const panel_context& context);
    message_text title() const override;
    bool take_key(int key) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void make_layout();
    void refresh();
    void accept();
    void leave();

    text_request request_;
    keyboard_input input_;
    text_field* field_;
    message_label* note_;
    panel_button* ok_;
    soft_keyboard* keys_;
};

} // namespace velarion

#endif
