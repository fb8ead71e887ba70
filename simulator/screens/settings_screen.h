#ifndef SETTINGS_SCREEN_H
#define SETTINGS_SCREEN_H

#include "panel_screen.h"

namespace velarion {

class panel_list;

/** The settings of the machine: a list that leads to a screen each. */
class settings_screen : public panel_screen {
public:
    explicit settings_screen(const panel_context& context);
    message_text title() const override;

private:
    void refresh();

    panel_list* list_;
};

} // namespace velarion

#endif
