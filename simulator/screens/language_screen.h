#ifndef LANGUAGE_SCREEN_H
#define LANGUAGE_SCREEN_H

#include "panel_screen.h"

namespace velarion {

class message_label;
class panel_button;
class panel_list;

/** The languages of the panel, each under its own name: the machine's and, above it, a user's. */
class language_screen : public panel_screen {
public:
    explicit language_screen(const panel_context& context);
    message_text title() const override;

private:
    panel_button* make_tab(const char* name, const char* text, bool is_preferred);
    void refresh();
    void choose(int row);

    bool is_preferred_;
    panel_button* standard_tab_;
    panel_button* preferred_tab_;
    message_label* note_;
    panel_list* list_;
};

} // namespace velarion

#endif
