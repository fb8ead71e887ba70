#ifndef HOME_SCREEN_H
#define HOME_SCREEN_H

#include "panel_screen.h"

namespace velarion {

/** The functions of the machine as tiles. */
class home_screen : public panel_screen {
public:
    explicit home_screen(const panel_context& context);
    message_text title() const override;
};

} // namespace velarion

#endif
