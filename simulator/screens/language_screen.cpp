#include "language_screen.h"

#include "language_keyboards.h"
#include "message_label.h"
#include "panel_button.h"
#include "panel_languages.h"
#include "panel_list.h"
#include "panel_view_ids.h"
#include "screen_layout.h"
#include "theme.h"
#include "units.h"

namespace velarion {

language_screen::language_screen(const panel_context& context)
    : panel_screen(context)
    , is_preferred_(languages().preferred_language().language_id != 0)
    , standard_tab_(make_tab("standard", MSG_NORMAL_TITLE_SYSTEM_SETTINGS, false))
    , preferred_tab_(make_tab("preferred", MSG_NORMAL_ACCESS_PROFILE, true))
    , note_(new message_label(text_role::CAPTION))
    , list_(new panel_list) {
    lay_out_column(*this, {make_row({standard_tab_, preferred_tab_}), note_, list_});
    note_->setFixedHeight(px(16));
    note_->set_color(colors::quiet_text);
    connect(list_, &panel_list::chosen, this, [this](int row) { choose(row); });
    refresh();
}

panel_button* language_screen::make_tab(const char* name, const char* text, bool is_preferred) {
    auto* tab = new panel_button(name, button_form::TEXT, text);
    tab->setCheckable(true);
    tab->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(tab, &QAbstractButton::clicked, this, [this, is_preferred] {
        is_preferred_ = is_preferred;
        refresh();
        list_->begin_anew();
    });
    return tab;
}

message_text language_screen::title() const {
    return MSG_NORMAL_TITLE_DISPLAY_LANGUAGE;
}

/** In the user's list the first row ends the choice: the machine's language shows again. */
void language_screen::refresh() {
    standard_tab_->setChecked(!is_preferred_);
    preferred_tab_->setChecked(is_preferred_);
    note_->set_message(is_preferred_ ? MSG_NORMAL_REGION_LANGUAGE_TEMP : MSG_NORMAL_REGION_SELECT_LANGUAGE);
    const language_choice standard = languages().standard_language();
    const language_choice chosen = is_preferred_ ? languages().preferred_language() : standard;
    std::vector<list_row> rows;
    if (is_preferred_) {
        rows.push_back({QStringLiteral("none"),
                        {},
                        MSG_NORMAL_TITLE_SYSTEM_SETTINGS,
                        language_name(standard),
                        chosen.language_id == 0});
    }
    for (const language_choice& language : languages().languages()) {
        const int id = language.option_language_id != 0 ? language.option_language_id : language.language_id;
        rows.push_back({QString::number(id), {}, language_name(language), {}, language == chosen});
    }
    list_->set_rows(rows);
}

void language_screen::choose(int row) {
    const std::vector<language_choice> all = languages().languages();
    const int place = is_preferred_ ? row - 1 : row;
    const language_choice choice = place < 0 ? language_choice{} : all[static_cast<std::size_t>(place)];
    if (is_preferred_) {
        languages().choose_preferred_language(choice);
    } else {
        languages().choose_standard_language(choice);
    }
    refresh();
}

} // namespace velarion
