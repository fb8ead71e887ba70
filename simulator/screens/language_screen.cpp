#include "language_screen.h"

#include "language_keyboards.h"
#include "message_label.h"
#include "panel_button.h"
#include "panel_languages.h"
#include "panel_list.h"
#include "screen_layout.h"
#include "theme.h"
#include "units.h"

namespace velarion {

namespace {

constexpr char STANDARD[] = "10";         // MSG_NORMAL_TITLE_SYSTEM_SETTINGS
constexpr char USER[] = "16522";          // MSG_NORMAL_ACCESS_PROFILE
constexpr char NOTE_STANDARD[] = "13883"; // MSG_NORMAL_REGION_SELECT_LANGUAGE
constexpr char NOTE_USER[] = "13885";     // MSG_NORMAL_REGION_LANGUAGE_TEMP

} // namespace

language_screen::language_screen(const panel_context& context)
    : panel_screen(context)
    , is_preferred_(languages().preferred_language().language_id != 0)
    , standard_tab_(make_tab("standard", STANDARD, false))
    , preferred_tab_(make_tab("preferred", USER, true))
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
    return "19"; // MSG_NORMAL_TITLE_DISPLAY_LANGUAGE
}

/** In the user's list the first row ends the choice: the machine's language shows again. */
void language_screen::refresh() {
    standard_tab_->setChecked(!is_preferred_);
    preferred_tab_->setChecked(is_preferred_);
    note_->set_message(is_preferred_ ? NOTE_USER : NOTE_STANDARD);
    const language_choice standard = languages().standard_language();
    const language_choice chosen = is_preferred_ ? languages().preferred_language() : standard;
    std::vector<list_row> rows;
    if (is_preferred_) {
        rows.push_back(
            {QStringLiteral("none"), {}, STANDARD, language_name(standard), chosen.language_id == 0});
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
