#include "copy_screen.h"

#include "density_dialog.h"
#include "hard_key.h"
#include "machine_state.h"
#include "message_label.h"
#include "panel_button.h"
#include "panel_frame.h"
#include "panel_view_ids.h"
#include "stepper.h"
#include "theme.h"
#include "units.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace velarion {

copy_screen::copy_screen(const panel_context& context)
    : function_screen(context, job_kind::COPY)
    , copies_(new stepper(QStringLiteral("copies"), 1, MOST_COPIES))
    , color_(make_setting("color", MSG_NORMAL_COPY_COLOR_MODE, ICON_NORMAL_OTHER_COPY_COLOR))
    , ratio_(make_setting("ratio", MSG_NORMAL_COPY_REDUCE_ENLARGE, ICON_NORMAL_OTHER_COPY_ZOOM))
    , sides_(make_setting("sides", MSG_NORMAL_COPY_TWO_SIDED, ICON_NORMAL_OTHER_COPY_DUPLEX))
    , paper_(make_setting("paper", MSG_NORMAL_COPY_PAPER_SELECTION, ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_TRAY))
    , density_(make_setting("density", MSG_NORMAL_COPY_DENSITY, ICON_NORMAL_OTHER_COPY_DENSITY))
    , original_(make_setting("original", MSG_NORMAL_COPY_ORIGINAL_TYPE, ICON_NORMAL_OTHER_COPY_TEXT_PHOTO)) {
    auto* label = new message_label(text_role::CAPTION);
    label->set_color(colors::quiet_text);
    label->set_message(MSG_NORMAL_OTHER_COPIES);
    card().addWidget(label);
    card().addWidget(copies_);
    connect(copies_, &stepper::changed, this,
            [this](int copies) { change([copies](copy_settings& copy) { copy.copies = copies; }); });
    make_settings();
    connect(&machine(), &machine_state::changed, this, [this] { refresh(); });
    refresh();
}

message_text copy_screen::title() const {
    return MSG_NORMAL_TITLE_COPY;
}

template <class CHANGE> void copy_screen::change(CHANGE apply) {
    copy_settings settings = machine().copy();
    apply(settings);
    begins_number_ = true;
    machine().set_copy(settings);
}

void copy_screen::make_settings() {
    auto* layout = new QGridLayout;
    layout->setSpacing(px(grid::space));
    int place = 0;
    for (panel_button* button : {color_, ratio_, sides_, paper_, density_, original_}) {
        layout->addWidget(button, place / 2, place % 2);
        ++place;
    }
    near_side().addLayout(layout);
    connect(color_, &QAbstractButton::clicked, this, [this] {
        ask_value(MSG_NORMAL_COPY_COLOR_MODE, color_modes(), machine().copy().color,
                  [this](color_mode value) { change([value](copy_settings& copy) { copy.color = value; }); });
    });
    connect(ratio_, &QAbstractButton::clicked, this, [this] {
        ask_value(MSG_NORMAL_COPY_REDUCE_ENLARGE, ratios(), machine().copy().ratio,
                  [this](int value) { change([value](copy_settings& copy) { copy.ratio = value; }); });
    });
    connect(sides_, &QAbstractButton::clicked, this, [this] {
        ask_value(MSG_NORMAL_COPY_TWO_SIDED, sides_of_copies(), machine().copy().sides,
                  [this](copy_sides value) { change([value](copy_settings& copy) { copy.sides = value; }); });
    });
    connect(paper_, &QAbstractButton::clicked, this, [this] {
        ask_value(MSG_NORMAL_COPY_PAPER_SELECTION, paper_choices(), machine().copy().tray,
                  [this](int value) { change([value](copy_settings& copy) { copy.tray = value; }); });
    });
    connect(original_, &QAbstractButton::clicked, this, [this] {
        ask_value(
            MSG_NORMAL_COPY_ORIGINAL_TYPE, original_types(), machine().copy().original,
            [this](original_type value) { change([value](copy_settings& copy) { copy.original = value; }); });
    });
    connect(density_, &QAbstractButton::clicked, this, [this] { choose_density(); });
}

void copy_screen::choose_density() {
    ask_density(frame(), machine().copy().density,
                [this](int density) { change([density](copy_settings& copy) { copy.density = density; }); });
}

void copy_screen::start() {
    machine().start_copy();
}

/** Digits make the number of copies. */
bool copy_screen::take_key(int key) {
    const int copies = machine().copy().copies;
    if (is_digit_key(key)) {
        const int number = begins_number_ ? key : copies * 10 + key;
        if (number >= 1 && number <= MOST_COPIES) {
            change([number](copy_settings& copy) { copy.copies = number; });
            begins_number_ = false;
        }
        return true;
    }
    if (key == KEY_CLEAR) {
        change([](copy_settings& copy) { copy.copies = 1; });
        return true;
    }
    return function_screen::take_key(key);
}

void copy_screen::refresh() {
    const copy_settings& copy = machine().copy();
    copies_->set_value(copy.copies);
    color_->set_value(text_of(color_modes(), copy.color));
    ratio_->set_value(ratio_text(copy.ratio));
    sides_->set_value(text_of(sides_of_copies(), copy.sides));
    paper_->set_value(text_of(paper_choices(), copy.tray));
    density_->set_value(copy.density == 0 ? message_text(MSG_NORMAL_COPY_DENSITY_AUTO)
                                          : density_text(copy.density));
    original_->set_value(text_of(original_types(), copy.original));
    show_state(machine().originals() > 0, machine().originals() > 0 ? MSG_NORMAL_STATUS_READY_TO_COPY
                                                                    : MSG_NORMAL_STATUS_PLACE_ORIGINAL);
}

} // namespace velarion
