#include "title_bar.h"

#include "machine_state.h"
#include "message_label.h"
#include "panel_button.h"
#include "panel_view_ids.h"
#include "status_pill.h"
#include "units.h"

#include <QHBoxLayout>

namespace velarion {

namespace {

constexpr const char* BACK_PICTURE = ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_BACK;

} // namespace

title_bar::title_bar(const machine_state& machine)
    : back_(new panel_button("back", button_form::PICTURE, {}, BACK_PICTURE))
    , title_(new message_label(text_role::TITLE)) {
    setFixedHeight(px(grid::title_bar));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(px(grid::margin), 0, px(grid::margin), 0);
    layout->setSpacing(px(grid::space));
    back_->set_ground(false);
    back_->set_picture_follows_direction(true);
    connect(back_, &QAbstractButton::clicked, this, &title_bar::back_wanted);
    auto* pill = new status_pill(machine);
    connect(pill, &QAbstractButton::clicked, this, &title_bar::status_wanted);
    auto* clock = new message_label(text_role::CAPTION, Qt::AlignCenter);
    clock->set_color(colors::quiet_text);
    clock->set_message(message_text::literal(machine.clock()));
    connect(&machine, &machine_state::stepped, clock,
            [clock, &machine] { clock->set_message(message_text::literal(machine.clock())); });
    layout->addWidget(back_);
    layout->addWidget(title_, 1);
    layout->addWidget(pill);
    layout->addWidget(clock);
}

void title_bar::set_title(const message_text& title, bool has_way_back) {
    title_->set_message(title);
    back_->setVisible(has_way_back);
}

} // namespace velarion
