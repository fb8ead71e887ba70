#include "status_screen.h"

#include "condition_text.h"
#include "job_history.h"
#include "job_texts.h"
#include "machine_state.h"
#include "message_label.h"
#include "movie_view.h"
#include "panel_button.h"
#include "panel_frame.h"
#include "panel_view_ids.h"
#include "picture_view.h"
#include "progress_bar.h"
#include "stop_question.h"
#include "theme.h"
#include "units.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace velarion {

namespace {

constexpr QSize MOVIE(50, 50); // dp: the movies' own 64 px

} // namespace

status_screen::status_screen(const panel_context& context)
    : panel_screen(context)
    , fault_(new panel_button("fault", button_form::ROW, {}, ICON_CMN_OTHER_WARNING))
    , movie_(new movie_view(MOVIE, context.services.machine))
    , picture_(new picture_view(MOVIE))
    , kind_(new message_label(text_role::TITLE))
    , state_(new message_label(text_role::BODY))
    , detail_(new message_label(text_role::CAPTION))
    , waiting_(new message_label(text_role::CAPTION))
    , progress_(new progress_bar)
    , resume_(new panel_button("resume", button_form::TEXT, MSG_NORMAL_KEY_CONTINUE, ICON_CMN_OTHER_START))
    , stop_(new panel_button("stop", button_form::TEXT, MSG_CMN_STOP_TEXT, ICON_CMN_OTHER_STOP_KEY)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(px(grid::margin), px(grid::margin), px(grid::margin), px(grid::margin));
    layout->setSpacing(px(grid::margin));
    fault_->set_alert(true);
    fault_->setFixedHeight(px(grid::navigation));
    layout->addWidget(fault_);
    auto* columns = new QHBoxLayout;
    columns->setSpacing(px(2 * grid::margin));
    columns->addLayout(make_job(), 1);
    columns->addWidget(new job_history(machine()), 1);
    layout->addLayout(columns, 1);
    connect(fault_, &QAbstractButton::clicked, this,
            [this] { frame().open(machine().jam() ? QStringLiteral("guidance") : QStringLiteral("trays")); });
    connect(resume_, &QAbstractButton::clicked, this, [this] { machine().resume_job(); });
    connect(stop_, &QAbstractButton::clicked, this, [this] { ask_to_stop(frame(), machine()); });
    connect(&machine(), &machine_state::changed, this, [this] { refresh(); });
    refresh();
}

message_text status_screen::title() const {
    return MSG_NORMAL_TITLE_JOB_LIST;
}

QVBoxLayout* status_screen::make_job() {
    auto* column = new QVBoxLayout;
    column->setSpacing(px(grid::space));
    auto* top = new QHBoxLayout;
    top->setSpacing(px(grid::margin));
    top->addWidget(movie_);
    top->addWidget(picture_);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(px(grid::gap));
    texts->addStretch(1);
    for (message_label* label : {kind_, state_, detail_}) {
        label->set_wraps(true);
        texts->addWidget(label);
    }
    texts->addStretch(1);
    top->addLayout(texts, 1);
    column->addLayout(top);
    column->addWidget(progress_);
    detail_->set_color(colors::quiet_text);
    waiting_->set_color(colors::quiet_text);
    column->addWidget(waiting_);
    column->addStretch(1);
    auto* row = new QHBoxLayout;
    row->setSpacing(px(grid::space));
    resume_->set_primary(true);
    for (panel_button* button : {resume_, stop_}) {
        button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        button->setFixedHeight(px(grid::navigation));
        row->addWidget(button, 1);
    }
    column->addLayout(row);
    return column;
}

void status_screen::refresh() {
    const machine_condition condition = machine().condition();
    const bool is_faulty = condition == machine_condition::JAMMED || condition == machine_condition::NO_PAPER;
    fault_->setVisible(is_faulty);
    fault_->set_message(is_faulty ? condition_text(machine()) : message_text());
    fault_->set_value(MSG_NORMAL_CHECK_BTN_HOW_TO_FIX);
    show_job();
}

void status_screen::show_job() {
    const machine_job* job = machine().current_job();
    const bool is_paused = job && job->state == job_state::PAUSED;
    const bool is_faulty = fault_->isVisibleTo(this);
    const QString movie = job && !is_faulty && !is_paused ? movie_of(*job) : QString();
    movie_->setVisible(!movie.isEmpty());
    movie_->set_movie(movie);
    picture_->setVisible(movie.isEmpty());
    picture_->set_picture(
        QLatin1String(job ? picture_of(job->kind) : ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_STATUS));
    kind_->set_message(job ? name_of(job->kind) : condition_text(machine()));
    state_->set_message(is_faulty && job ? MSG_NORMAL_JOBLIST_STATE_SUSPENDED
                        : job            ? condition_text(machine())
                                         : message_text(MSG_NORMAL_HOME_SELECT_FUNCTION));
    detail_->set_message(job ? detail_of(*job) : message_text());
    progress_->setVisible(job);
    progress_->set_percent(job ? job->percent() : 0);
    const auto waiting =
        std::count_if(machine().jobs().begin(), machine().jobs().end(),
                      [](const machine_job& one) { return one.state == job_state::WAITING; });
    waiting_->set_message(waiting > 0
                              ? message_text(MSG_NORMAL_STATUS_JOBS_WAITING, {QString::number(waiting)})
                              : message_text());
    resume_->setVisible(is_paused);
    stop_->setVisible(job);
}

} // namespace velarion
