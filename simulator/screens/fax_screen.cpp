#include "fax_screen.h"

#include "choice_bar.h"
#include "hard_key.h"
#include "machine_state.h"
#include "message_label.h"
#include "panel_button.h"
#include "panel_view_ids.h"
#include "text_field.h"
#include "theme.h"
#include "units.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace velarion {

namespace {

constexpr int MOST_DIGITS = 24;
constexpr int COLUMNS = 3;

struct pad_key {
    int key;
    const char* name;
};

constexpr pad_key PAD[] = {{1, "digit_1"}, {2, "digit_2"},     {3, "digit_3"}, {4, "digit_4"},
                           {5, "digit_5"}, {6, "digit_6"},     {7, "digit_7"}, {8, "digit_8"},
                           {9, "digit_9"}, {KEY_STAR, "star"}, {0, "digit_0"}, {KEY_HASH, "hash"}};

} // namespace

fax_screen::fax_screen(const panel_context& context)
    : function_screen(context, job_kind::FAX)
    , number_(new text_field("number"))
    , resolution_(new choice_bar({{"standard", MSG_NORMAL_FAX_ITEM_RESOLUTION_STANDARD},
                                  {"fine", MSG_NORMAL_FAX_ITEM_RESOLUTION_FINE}})) {
    auto* column = new QVBoxLayout;
    column->setSpacing(px(grid::space));
    auto* row = new QHBoxLayout;
    row->setSpacing(px(grid::space));
    row->addWidget(number_, 1);
    auto* clear = new panel_button("clear", button_form::TEXT, MSG_CMN_CLEAR_TEXT);
    connect(clear, &QAbstractButton::clicked, this, [this] { take_key(KEY_CLEAR); });
    row->addWidget(clear);
    column->addLayout(row);
    column->addWidget(make_keys(), 1);
    near_side().addLayout(column);
    auto* label = new message_label(text_role::CAPTION);
    label->set_color(colors::quiet_text);
    label->set_message(MSG_NORMAL_SCAN_TITLE_RESOLUTION);
    card().addWidget(label);
    card().addWidget(resolution_);
    connect(resolution_, &choice_bar::chosen, this, [this](int choice) {
        change([choice](fax_settings& fax) { fax.resolution = static_cast<fax_resolution>(choice); });
    });
    connect(&machine(), &machine_state::changed, this, [this] { refresh(); });
    refresh();
}

message_text fax_screen::title() const {
    return MSG_NORMAL_TITLE_FAX;
}

template <class CHANGE> void fax_screen::change(CHANGE apply) {
    fax_settings settings = machine().fax();
    apply(settings);
    machine().set_fax(settings);
}

/** Digits stand from left to right in every language. */
QWidget* fax_screen::make_keys() {
    auto* keys = new QWidget;
    keys->setLayoutDirection(Qt::LeftToRight);
    auto* layout = new QGridLayout(keys);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(px(grid::space));
    int place = 0;
    for (const pad_key& entry : PAD) {
        auto* button =
            new panel_button(entry.name, button_form::TEXT, message_text::literal(sign_of_key(entry.key)));
        button->set_role(text_role::TITLE);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        connect(button, &QAbstractButton::clicked, this, [this, key = entry.key] { take_key(key); });
        layout->addWidget(button, place / COLUMNS, place % COLUMNS);
        ++place;
    }
    return keys;
}

void fax_screen::start() {
    machine().start_fax();
}

bool fax_screen::take_key(int key) {
    const QString sign = sign_of_key(key);
    if (!sign.isEmpty()) {
        change([&sign](fax_settings& fax) { fax.number = (fax.number + sign).left(MOST_DIGITS); });
        return true;
    }
    if (key == KEY_CLEAR) {
        change([](fax_settings& fax) { fax.number.chop(1); });
        return true;
    }
    return function_screen::take_key(key);
}

void fax_screen::refresh() {
    const fax_settings& fax = machine().fax();
    number_->set_text(fax.number, fax.number.size(), Qt::LeftToRight);
    resolution_->set_current(static_cast<int>(fax.resolution));
    const bool has_originals = machine().originals() > 0;
    show_state(has_originals && !fax.number.isEmpty(), fax.number.isEmpty() ? MSG_NORMAL_FAX_TEXT_ENTER_NUMBER
                                                       : has_originals      ? MSG_NORMAL_START_PRESS_KEY
                                                                       : MSG_NORMAL_STATUS_PLACE_ORIGINAL);
}

} // namespace velarion
