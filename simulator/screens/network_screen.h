#ifndef NETWORK_SCREEN_H
#define NETWORK_SCREEN_H

#include "machine_settings.h"
#include "panel_screen.h"

namespace velarion {

class panel_list;

/** The network settings: values that are switched, and addresses that are entered. */
class network_screen : public panel_screen {
public:
    explicit network_screen(const panel_context& context);
    message_text title() const override;

private:
    void refresh();
    void choose(const QString& name);
    void ask_value(const char* title, QString network_settings::*value, bool wants_address);

    panel_list* list_;
};

} // namespace velarion

#endif
