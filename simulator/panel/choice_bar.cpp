#include "choice_bar.h"

#include "panel_button.h"
#include "theme.h"

#include <QHBoxLayout>

namespace velarion {

choice_bar::choice_bar(const std::vector<bar_choice>& choices) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (const bar_choice& choice : choices) {
        auto* button = new panel_button(choice.name, button_form::TEXT, choice.text);
        button->set_ground(false);
        button->setCheckable(true);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        const int place = static_cast<int>(buttons_.size());
        connect(button, &QAbstractButton::clicked, this, [this, button, place] {
            button->setChecked(!button->isChecked()); // only set_current() checks
            Q_EMIT chosen(place);
        });
        layout->addWidget(button, 1);
        buttons_.push_back(button);
    }
}

void choice_bar::set_current(int choice) {
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        buttons_[i]->setChecked(static_cast<int>(i) == choice);
    }
}

void choice_bar::paintEvent(QPaintEvent*) {
    paint_surface(*this);
}

} // namespace velarion
