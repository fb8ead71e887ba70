#ifndef CHOICE_BAR_H
#define CHOICE_BAR_H

#include "message_text.h"

#include <QWidget>

#include <vector>

namespace velarion {

class panel_button;

/** One of the choices of a choice_bar. */
struct bar_choice {
    const char* name; ///< of its button, for scripts
    message_text text;
};

/** A few choices side by side, of which one holds. */
class choice_bar : public QWidget {
    Q_OBJECT

public:
    explicit choice_bar(const std::vector<bar_choice>& choices);

    void set_current(int choice);

Q_SIGNALS:
    /** The user took one; the bar shows it when set_current() is told so. */
    void chosen(int choice);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::vector<panel_button*> buttons_;
};

} // namespace velarion

#endif
