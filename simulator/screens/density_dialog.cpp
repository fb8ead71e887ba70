#include "density_dialog.h"

#include "choice_bar.h"
#include "hard_key.h"
#include "message_label.h"
#include "panel_dialog.h"
#include "panel_frame.h"
#include "panel_view_ids.h"
#include "setting_texts.h"
#include "theme.h"
#include "units.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace velarion {

namespace {

constexpr const char* NAMES[] = {"lighter_3", "lighter_2", "lighter_1", "normal",
                                 "darker_1",  "darker_2",  "darker_3"};

choice_bar* make_bar(int current, const std::function<void(int density)>& chosen) {
    std::vector<bar_choice> choices;
    for (int i = -DARKEST; i <= DARKEST; ++i) {
        choices.push_back({NAMES[i + DARKEST], density_text(i)});
    }
    auto* bar = new choice_bar(choices);
    bar->set_current(current + DARKEST);
    QObject::connect(bar, &choice_bar::chosen, bar, [bar, chosen](int choice) {
        bar->set_current(choice);
        chosen(choice - DARKEST);
    });
    return bar;
}

message_label* make_end(const char* text) {
    auto* label = new message_label(text_role::CAPTION);
    label->set_color(colors::quiet_text);
    label->set_message(text);
    return label;
}

} // namespace

void ask_density(panel_frame& frame, int current, const std::function<void(int density)>& chosen) {
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(make_bar(current, chosen));
    auto* ends = new QHBoxLayout;
    ends->addWidget(make_end(MSG_NORMAL_COPY_DENSITY_LIGHTER));
    ends->addStretch(1);
    ends->addWidget(make_end(MSG_NORMAL_COPY_DENSITY_DARKER));
    column->addLayout(ends);
    frame.show_dialog(
        new panel_dialog(MSG_NORMAL_COPY_DENSITY, content, {{"ok", MSG_CMN_OK_TEXT, {}, true, KEY_START}}));
}

} // namespace velarion
