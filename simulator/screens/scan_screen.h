#ifndef SCAN_SCREEN_H
#define SCAN_SCREEN_H

#include "function_screen.h"

namespace velarion {

/** Scanning: where to, and as what. */
class scan_screen : public function_screen {
public:
    explicit scan_screen(const panel_context& context);
    message_text title() const override;

protected:
    void start() override;

private:
    void make_settings();
    void refresh();
    void ask_destination();
    template <class CHANGE> void change(CHANGE apply);

    panel_button* destination_;
    panel_button* color_;
    panel_button* format_;
    panel_button* resolution_;
    panel_button* original_;
};

} // namespace velarion

#endif
