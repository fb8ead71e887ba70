#ifndef STATUS_SCREEN_H
#define STATUS_SCREEN_H

#include "panel_screen.h"

class QVBoxLayout;

namespace velarion {

class message_label;
class movie_view;
class panel_button;
class picture_view;
class progress_bar;

/** The job at work, those that wait and those that are over; a fault leads to its guidance. */
class status_screen : public panel_screen {
public:
    explicit status_screen(const panel_context& context);
    message_text title() const override;

private:
    QVBoxLayout* make_job();
    void refresh();
    void show_job();

    panel_button* fault_;
    movie_view* movie_;
    picture_view* picture_;
    message_label* kind_;
    message_label* state_;
    message_label* detail_;
    message_label* waiting_;
    progress_bar* progress_;
    panel_button* resume_;
    panel_button* stop_;
};

} // namespace velarion

#endif
