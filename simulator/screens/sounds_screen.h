#ifndef SOUNDS_SCREEN_H
#define SOUNDS_SCREEN_H

#include "panel_screen.h"

#include <vector>

namespace velarion {

class level_bar;
class message_label;
class panel_button;
class picture_view;

/** The sounds of the machine and how loud each is. */
class sounds_screen : public panel_screen {
public:
    explicit sounds_screen(const panel_context& context);
    message_text title() const override;

private:
    struct sound_row {
        picture_view* picture;
        message_label* level;
        level_bar* bar;
        panel_button* softer;
        panel_button* louder;
    };

    QWidget* make_row_of(std::size_t sound);
    void refresh();
    void change(std::size_t sound, int direction);
    void mute();

    std::vector<sound_row> rows_;
    panel_button* mute_;
};

} // namespace velarion

#endif
