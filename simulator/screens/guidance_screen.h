#ifndef GUIDANCE_SCREEN_H
#define GUIDANCE_SCREEN_H

#include "panel_screen.h"

namespace velarion {

class guidance_view;
class message_label;
class panel_button;

/** Leads through the removal of jammed paper, step by step, with pictures and a movie. */
class guidance_screen : public panel_screen {
public:
    explicit guidance_screen(const panel_context& context);
    message_text title() const override;

private:
    QWidget* make_side();
    void refresh();
    void show_step();
    void show_no_jam();
    void go_on();
    void go_back();
    void show_movie(bool is_shown);

    guidance_view* view_;
    message_label* place_;
    message_label* text_;
    message_label* count_;
    panel_button* movie_;
    panel_button* back_;
    panel_button* next_;
    int shown_step_ = -1;
};

} // namespace velarion

#endif
