#include "guidance_screen.h"

#include "guidance_view.h"
#include "jam_guidance.h"
#include "machine_state.h"
#include "message_label.h"
#include "panel_button.h"
#include "panel_frame.h"
#include "panel_view_ids.h"
#include "screen_layout.h"
#include "theme.h"
#include "units.h"

#include <QBoxLayout>

namespace velarion {

namespace {

constexpr QSize PICTURE_SIZE(340, 255); // dp, as the pictures are shaped

} // namespace

guidance_screen::guidance_screen(const panel_context& context)
    : panel_screen(context)
    , view_(new guidance_view(PICTURE_SIZE, machine()))
    , place_(new message_label(text_role::BUTTON))
    , text_(new message_label(text_role::TITLE, Qt::AlignLeading | Qt::AlignTop))
    , count_(new message_label(text_role::BODY))
    , movie_(
          new panel_button("movie", button_form::ROW, MSG_NORMAL_CHECK_BTN_HOW_TO_FIX, ICON_CMN_OTHER_START))
    , back_(new panel_button("previous", button_form::TEXT, MSG_CMN_BACK_TEXT))
    , next_(new panel_button("next", button_form::TEXT, MSG_CMN_NEXT_TEXT)) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(px(grid::margin), px(grid::margin), px(grid::margin), px(grid::margin));
    layout->setSpacing(px(grid::margin));
    layout->addWidget(view_);
    layout->addWidget(make_side(), 1);
    movie_->setCheckable(true);
    next_->set_primary(true);
    connect(movie_, &QAbstractButton::clicked, this, [this](bool is_on) { show_movie(is_on); });
    connect(back_, &QAbstractButton::clicked, this, [this] { go_back(); });
    connect(next_, &QAbstractButton::clicked, this, [this] { go_on(); });
    connect(&machine(), &machine_state::changed, this, [this] { refresh(); });
    refresh();
}

QWidget* guidance_screen::make_side() {
    place_->set_wraps(true);
    place_->set_color(colors::warn);
    text_->set_wraps(true);
    count_->set_color(colors::quiet_text);
    auto* side = new QWidget;
    auto* layout = new QVBoxLayout(side);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(px(grid::space));
    layout->addWidget(place_);
    layout->addWidget(count_);
    layout->addWidget(text_, 1);
    layout->addWidget(movie_);
    QWidget* buttons = make_row({back_, next_});
    for (panel_button* button : {back_, next_}) {
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }
    layout->addWidget(buttons);
    return side;
}

message_text guidance_screen::title() const {
    return MSG_HELP_PAPER_JAM_TITLE;
}

void guidance_screen::refresh() {
    const bool is_jammed = machine().jam().has_value();
    count_->setVisible(is_jammed);
    movie_->setVisible(is_jammed);
    back_->setVisible(is_jammed);
    if (!is_jammed) {
        show_no_jam();
    } else if (shown_step_ != machine().jam()->step) {
        show_step();
    }
}

/** A step that follows on another one comes in from the side. */
void guidance_screen::show_step() {
    const paper_jam& jam = *machine().jam();
    const int all = static_cast<int>(jam.place->steps.size());
    place_->set_message(jam.place->message);
    text_->set_message(jam_step_text(*jam.place, jam.step));
    // Isolated: from left to right in every language.
    count_->set_message(
        message_text::literal(QStringLiteral("\u2066%1 / %2\u2069").arg(jam.step + 1).arg(all)));
    back_->setEnabled(jam.step > 0);
    next_->set_message(jam.step + 1 < all ? MSG_CMN_NEXT_TEXT : MSG_CMN_OK_TEXT);
    movie_->setChecked(false);
    dvc_pnl_vwm_animation_request request;
    if (shown_step_ >= 0) {
        request.dvc_pnl_vwm_set_type(ANIMATION_SLIDE);
        request.dvc_pnl_vwm_set_direction(jam.step < shown_step_ ? ANIMATION_BACK
                                                                 : DVC_PNL_VWM_ANIMATION_DIRECTION_DEFAULT);
    }
    shown_step_ = jam.step;
    view_->show_picture(QLatin1String(jam.place->steps[static_cast<std::size_t>(jam.step)]), request);
}

void guidance_screen::show_no_jam() {
    shown_step_ = -1;
    place_->set_message({});
    text_->set_message(MSG_STATUS_COVER_ALL_CLOSED);
    next_->set_message(MSG_CMN_OK_TEXT);
    view_->show_picture(QLatin1String(ICON_NORMAL_OTHER_ILLUSTRATION_COVER_CLOSE), {});
}

void guidance_screen::show_movie(bool is_shown) {
    const paper_jam& jam = *machine().jam();
    const char* step = jam.place->steps[static_cast<std::size_t>(jam.step)];
    dvc_pnl_vwm_animation_request request;
    request.dvc_pnl_vwm_set_type(is_shown ? ANIMATION_MOVIE : DVC_PNL_VWM_ANIMATION_TYPE_DEFAULT);
    view_->show_picture(QLatin1String(is_shown ? jam.place->movie : step), request);
}

/** The last step clears the jam; there is nothing to be led through then. */
void guidance_screen::go_on() {
    machine().do_jam_step();
    if (!machine().jam()) {
        frame().back();
    }
}

void guidance_screen::go_back() {
    machine().undo_jam_step();
}

} // namespace velarion
