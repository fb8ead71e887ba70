#ifndef PANEL_DIALOG_H
#define PANEL_DIALOG_H

#include "message_text.h"

#include <QWidget>

#include <functional>
#include <vector>

namespace velarion {

/** A way out of a dialog. */
struct dialog_button {
    const char* name; ///< for scripts
    message_text text;
    std::function<void()> act; ///< once the dialog is gone; may be empty
    bool is_primary = false;
    int key = -1; ///< hard key that does the same
};

/**
 * A question over the whole panel: nothing else can be touched, and the focus stays in it, until one of its
 * buttons is pressed. Shown by panel_frame::show_dialog().
 */
class panel_dialog : public QWidget {
    Q_OBJECT

public:
    /**
     * @param message  what is asked
     * @param content  between message and buttons, becomes a part of the dialog; null: nothing
     * @param buttons  one at least, from the near end to the far end
     */
    panel_dialog(const message_text& message, QWidget* content, const std::vector<dialog_button>& buttons);

    /** A hard key went down. Every key is taken. */
    void take_key(int key);
    /** Ends the dialog as if no button had been pressed. */
    void close_quietly() { leave({}); }

Q_SIGNALS:
    /** It is over; take it away, but delete it later. */
    void left();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent*) override {}

private:
    void leave(const std::function<void()>& act);

    std::vector<dialog_button> buttons_;
    QWidget* box_;
};

} // namespace velarion

#endif
