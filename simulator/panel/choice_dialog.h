#ifndef CHOICE_DIALOG_H
#define CHOICE_DIALOG_H

#include "panel_list.h"

#include <functional>

namespace velarion {

class panel_frame;

/**
 * Asks for one of several values.
 *
 * @param title   of what is chosen
 * @param chosen  is told the row that was tapped; not called when the user cancels
 */
void ask_choice(panel_frame& frame, const message_text& title, const std::vector<list_row>& rows,
                const std::function<void(int row)>& chosen);

} // namespace velarion

#endif
