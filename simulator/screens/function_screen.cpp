#include "function_screen.h"

#include "condition_text.h"
#include "hard_key.h"
#include "machine_state.h"
#include "message_label.h"
#include "panel_button.h"
#include "panel_card.h"
#include "panel_frame.h"
#include "panel_view_ids.h"
#include "progress_bar.h"
#include "stop_question.h"
#include "theme.h"
#include "units.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace velarion {

namespace {

constexpr int CARD_WIDTH = 212;  // dp
constexpr int START_HEIGHT = 56; // dp
constexpr int HINT_HEIGHT = 32;  // dp: two lines

} // namespace

function_screen::function_screen(const panel_context& context, job_kind kind)
    : panel_screen(context)
    , kind_(kind)
    , near_side_(new QHBoxLayout)
    , card_(new QVBoxLayout)
    , hint_(new message_label(text_role::CAPTION))
    , progress_(new progress_bar)
    , start_(new panel_button("start", button_form::TEXT, MSG_CMN_START_TEXT, ICON_CMN_OTHER_START))
    , stop_(new panel_button("stop", button_form::TEXT, MSG_CMN_STOP_TEXT, ICON_CMN_OTHER_STOP_KEY)) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(px(grid::margin), px(grid::margin), px(grid::margin), px(grid::margin));
    layout->setSpacing(px(grid::margin));
    layout->addLayout(near_side_, 1);
    auto* card = new panel_card;
    card->setFixedWidth(px(CARD_WIDTH));
    layout->addWidget(card);
    card->column().addLayout(card_);
    card->column().addStretch(1);
    hint_->set_wraps(true);
    hint_->set_color(colors::quiet_text);
    hint_->setFixedHeight(px(HINT_HEIGHT));
    card->column().addWidget(hint_);
    card->column().addWidget(progress_);
    start_->set_primary(true);
    start_->setFixedHeight(px(START_HEIGHT));
    card->column().addWidget(start_);
    auto* row = new QHBoxLayout;
    row->setSpacing(px(grid::space));
    auto* reset = new panel_button("reset", button_form::PICTURE, {}, ICON_CMN_OTHER_RESET);
    stop_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    row->addWidget(stop_, 1);
    row->addWidget(reset);
    card->column().addLayout(row);
    connect(start_, &QAbstractButton::clicked, this, [this] { start(); });
    connect(stop_, &QAbstractButton::clicked, this, [this] { ask_to_stop(frame(), machine()); });
    connect(reset, &QAbstractButton::clicked, this, [this] { machine().reset_settings(); });
}

bool function_screen::take_key(int key) {
    if (key == KEY_START && start_->isEnabled()) {
        start();
        return true;
    }
    return false;
}

void function_screen::show_state(bool can_start, const message_text& hint) {
    const machine_job* job = machine().current_job();
    const bool is_ready = machine().condition() == machine_condition::READY;
    hint_->set_message(is_ready ? hint : condition_text(machine()));
    progress_->set_percent(job ? job->percent() : 0);
    progress_->setVisible(job);
    const bool is_at_work = job && job->kind == kind_; // another function's job is waited for
    start_->setEnabled(can_start && !is_at_work && !machine().jam());
    stop_->setEnabled(job);
}

panel_button* function_screen::make_setting(const char* name, const char* text, const char* picture) {
    auto* button = new panel_button(name, button_form::SETTING, text, picture);
    button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
    return button;
}

} // namespace velarion
