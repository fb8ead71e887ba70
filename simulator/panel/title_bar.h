#ifndef TITLE_BAR_H
#define TITLE_BAR_H

#include "message_text.h"

#include <QWidget>

namespace velarion {

class machine_state;
class message_label;
class panel_button;

/** The top of the panel: the way back, the title of the screen, what the machine does, the time of day. */
class title_bar : public QWidget {
    Q_OBJECT

public:
    /** @param machine  outlives it */
    explicit title_bar(const machine_state& machine);

    void set_title(const message_text& title, bool has_way_back);

Q_SIGNALS:
    void back_wanted();
    void status_wanted();

private:
    panel_button* back_;
    message_label* title_;
};

} // namespace velarion

#endif
