#ifndef TRAYS_SCREEN_H
#define TRAYS_SCREEN_H

#include "panel_screen.h"

#include <vector>

namespace velarion {

class message_label;
class picture_view;
class progress_bar;

/** The paper trays with what is in them, and the toner. */
class trays_screen : public panel_screen {
public:
    explicit trays_screen(const panel_context& context);
    message_text title() const override;

private:
    /** What a card shows of its supply. */
    struct supply_card {
        picture_view* picture;
        message_label* size; ///< of paper; that of toner is empty
        progress_bar* bar;
        message_label* level;
        message_label* name;
        message_label* kind;
    };

    QWidget* make_tray_card();
    QWidget* make_toner_card();
    void refresh();

    std::vector<supply_card> trays_;
    std::vector<supply_card> toner_;
};

} // namespace velarion

#endif
