#ifndef FAX_SCREEN_H
#define FAX_SCREEN_H

#include "function_screen.h"

namespace velarion {

class choice_bar;
class text_field;

/** Faxing: the number, by the keys on the display or beside it. */
class fax_screen : public function_screen {
public:
    explicit fax_screen(const panel_context& context);
    message_text title() const override;
    bool take_key(int key) override;

protected:
    void start() override;

private:
    QWidget* make_keys();
    void refresh();
    template <class CHANGE> void change(CHANGE apply);

    text_field* number_;
    choice_bar* resolution_;
};

} // namespace velarion

#endif
