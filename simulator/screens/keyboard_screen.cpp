#include "keyboard_screen.h"

#include "hard_key.h"
#include "language_keyboards.h"
#include "machine_state.h"
#include "message_label.h"
#include "panel_button.h"
#include "panel_frame.h"
#include "panel_view_ids.h"
#include "soft_keyboard.h"
#include "text_field.h"
#include "theme.h"
#include "units.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

namespace velarion {

namespace {

/** What is asked for when nobody asked: the screen was opened by its name. */
text_request request_of(const panel_frame& frame) {
    text_request request = frame.asked_text();
    if (request.title.is_empty()) {
        request.title = MSG_NORMAL_SCAN_TITLE_FILE_NAME;
        request.rule = QLatin1String(FIELD_FILE_NAME);
    }
    return request;
}

keyboard_input input_of(const text_request& request) {
    const int language = language_in_force();
    return keyboard_input(keyboards_of(language, request.has_figures), request.text,
                          prohibited_characters(language, request.rule), request.limit);
}

} // namespace

keyboard_screen::keyboard_screen(const panel_context& context)
    : panel_screen(context)
    , request_(request_of(frame()))
    , input_(input_of(request_))
    , field_(new text_field("text"))
    , note_(new message_label(text_role::CAPTION))
    , ok_(new panel_button("ok", button_form::TEXT, MSG_CMN_OK_TEXT))
    , keys_(new soft_keyboard(input_)) {
    make_layout();
    field_->setFocusPolicy(Qt::StrongFocus);
    ok_->set_primary(true);
    connect(ok_, &QAbstractButton::clicked, this, [this] { accept(); });
    connect(keys_, &soft_keyboard::changed, this, [this] { refresh(); });
    connect(keys_, &soft_keyboard::entered, this, [this] { accept(); });
    connect(field_, &text_field::touched, this, [this](int position) {
        input_.set_cursor(position);
        refresh();
    });
    connect(&machine(), &machine_state::stepped, keys_, [this] { keys_->step(); });
    refresh();
}

void keyboard_screen::make_layout() {
    auto* cancel = new panel_button("cancel", button_form::TEXT, MSG_CMN_CANCEL_TEXT);
    connect(cancel, &QAbstractButton::clicked, this, [this] { leave(); });
    auto* row = new QHBoxLayout;
    row->setSpacing(px(grid::space));
    row->addWidget(field_, 1);
    row->addWidget(cancel);
    row->addWidget(ok_);
    note_->setFixedHeight(px(16));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(px(grid::margin), px(grid::space), px(grid::margin), px(grid::space));
    layout->setSpacing(px(grid::gap));
    layout->addLayout(row);
    layout->addWidget(note_);
    layout->addWidget(keys_, 1);
}

message_text keyboard_screen::title() const {
    return request_.title;
}

void keyboard_screen::refresh() {
    const bool is_right_to_left =
        input_.text().isEmpty() ? input_.board().is_right_to_left : input_.text().isRightToLeft();
    field_->set_text(input_.text(), input_.cursor(), is_right_to_left ? Qt::RightToLeft : Qt::LeftToRight);
    field_->set_refused(input_.was_refused());
    const bool is_full = input_.was_refused() && input_.remaining() == 0;
    note_->set_message({is_full ? MSG_SWKB_CHARS_LIMIT : MSG_SWKB_CHARS_REMAINING,
                        {QString::number(is_full ? input_.limit() : input_.remaining())}});
    note_->set_color(is_full ? colors::warn : colors::quiet_text);
    ok_->setEnabled(!input_.text().isEmpty());
}

void keyboard_screen::accept() {
    if (!ok_->isEnabled()) {
        return;
    }
    if (request_.accepts && !request_.accepts(input_.text())) {
        field_->set_refused(true);
        note_->set_message(request_.fault);
        note_->set_color(colors::error);
        return;
    }
    if (request_.done) {
        request_.done(input_.text());
    }
    leave();
}

void keyboard_screen::leave() {
    frame().back();
}

bool keyboard_screen::take_key(int key) {
    const QString written = sign_of_key(key);
    if (!written.isEmpty()) {
        input_.type(written);
        refresh();
    }
    return !written.isEmpty();
}

void keyboard_screen::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange) {
        const int language = language_in_force();
        input_.change_boards(keyboards_of(language, request_.has_figures),
                             prohibited_characters(language, request_.rule));
        keys_->reload();
        refresh();
    }
    panel_screen::changeEvent(event);
}

void keyboard_screen::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        accept();
    } else {
        event->setAccepted(keys_->take_pc_key(*event));
    }
}

} // namespace velarion
