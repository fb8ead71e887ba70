#include "stepper.h"

#include "message_label.h"
#include "panel_button.h"
#include "panel_view_ids.h"
#include "units.h"

#include <QHBoxLayout>

namespace velarion {

namespace {

constexpr const char* LESS = ICON_CMN_OTHER_MINUS;
constexpr const char* MORE = ICON_CMN_OTHER_PLUS;
constexpr int BUTTON_SIZE = 44;  // dp
constexpr int HEIGHT = 52;       // dp: large digits of every font
constexpr int REPEAT_TIME = 100; // ms

} // namespace

stepper::stepper(const QString& name, int least, int most)
    : least_(least)
    , most_(most)
    , value_(least)
    , less_(make_button(name + QStringLiteral("_less"), LESS, -1))
    , more_(make_button(name + QStringLiteral("_more"), MORE, 1))
    , number_(new message_label(text_role::NUMBER, Qt::AlignCenter)) {
    setFixedHeight(px(HEIGHT));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(px(grid::gap));
    layout->addWidget(less_);
    layout->addWidget(number_, 1);
    layout->addWidget(more_);
    set_value(least);
}

panel_button* stepper::make_button(const QString& name, const char* picture, int step) {
    auto* button = new panel_button(name.toLatin1().constData(), button_form::PICTURE, {}, picture);
    button->setFixedSize(px(BUTTON_SIZE), px(BUTTON_SIZE));
    button->setAutoRepeat(true);
    button->setAutoRepeatInterval(REPEAT_TIME);
    connect(button, &QAbstractButton::clicked, this, [this, step] {
        const int wanted = qBound(least_, value_ + step, most_);
        if (wanted != value_) {
            Q_EMIT changed(wanted);
        }
    });
    return button;
}

void stepper::set_value(int value) {
    value_ = value;
    number_->set_message(message_text::literal(QString::number(value)));
    less_->setEnabled(value > least_);
    more_->setEnabled(value < most_);
}

} // namespace velarion
