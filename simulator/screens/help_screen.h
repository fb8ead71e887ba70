#ifndef HELP_SCREEN_H
#define HELP_SCREEN_H

#include "panel_screen.h"

namespace velarion {

class message_label;
class panel_list;
class picture_view;

/** Topics of help, and the page of the one that is chosen. */
class help_screen : public panel_screen {
public:
    explicit help_screen(const panel_context& context);
    message_text title() const override;

private:
    QWidget* make_page();
    void show_topic(int topic);

    panel_list* list_;
    picture_view* picture_;
    message_label* body_;
    message_label* hint_;
};

} // namespace velarion

#endif
