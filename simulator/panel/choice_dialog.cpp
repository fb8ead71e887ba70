#include "choice_dialog.h"

#include "hard_key.h"
#include "panel_dialog.h"
#include "panel_frame.h"
#include "panel_view_ids.h"
#include "units.h"

namespace velarion {

namespace {

constexpr std::size_t MOST_ROWS = 5; // that are seen at once

} // namespace

void ask_choice(panel_frame& frame, const message_text& title, const std::vector<list_row>& rows,
                const std::function<void(int row)>& chosen) {
    auto* list = new panel_list;
    list->setObjectName(QStringLiteral("choices"));
    list->set_rows(rows);
    list->setFixedHeight(px(grid::row) * static_cast<int>(qMin(rows.size(), MOST_ROWS)));
    auto* dialog = new panel_dialog(title, list, {{"cancel", MSG_CMN_CANCEL_TEXT, {}, false, KEY_STOP}});
    QObject::connect(list, &panel_list::chosen, dialog, [dialog, chosen](int row) {
        const std::function<void(int)> kept = chosen;
        dialog->close_quietly();
        kept(row);
    });
    frame.show_dialog(dialog);
}

} // namespace velarion
