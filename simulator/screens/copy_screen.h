#ifndef COPY_SCREEN_H
#define COPY_SCREEN_H

#include "function_screen.h"

namespace velarion {

class stepper;

/** Copying: how many, of what, on what. */
class copy_screen : public function_screen {
public:
    explicit copy_screen(const panel_context& context);
    message_text title() const override;
    bool take_key(int key) override;

protected:
    void start() override;

private:
    void make_settings();
    void refresh();
    void choose_density();
    template <class CHANGE> void change(CHANGE apply);

    stepper* copies_;
    panel_button* color_;
    panel_button* ratio_;
    panel_button* sides_;
    panel_button* paper_;
    panel_button* density_;
    panel_button* original_;
    bool begins_number_ = true; ///< the next digit is the first of a number of copies
};

} // namespace velarion

#endif
