#include "sounds_screen.h"

#include "card.h"
#include "level_bar.h"
#include "machine_state.h"
#include "message_label.h"
#include "panel_button.h"
#include "panel_view_ids.h"
#include "picture_view.h"
#include "screen_layout.h"
#include "sound_levels.h"
#include "theme.h"
#include "units.h"

#include <QBoxLayout>

namespace velarion {

namespace {

/** What is set, and below it how loud it is. */
QLayout* make_texts(const char* sound, message_label* level) {
    auto* label = new message_label;
    label->set_message(sound);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(px(grid::gap));
    texts->addStretch(1);
    for (message_label* text : {label, level}) {
        text->set_wraps(true);
        texts->addWidget(text);
    }
    texts->addStretch(1);
    return texts;
}

} // namespace

sounds_screen::sounds_screen(const panel_context& context)
    : panel_screen(context)
    , mute_(new panel_button("mute_all", button_form::ROW, MSG_NORMAL_DEVICE_SOUND_MUTE_ALL,
                             ICON_CMN_OTHER_MUTE)) {
    QBoxLayout* layout = lay_out_column(*this, {});
    for (std::size_t sound = 0; sound < panel_sounds().size(); ++sound) {
        layout->addWidget(make_row_of(sound), 1);
    }
    layout->addWidget(mute_);
    connect(mute_, &QAbstractButton::clicked, this, [this] { mute(); });
    connect(&machine(), &machine_state::changed, this, [this] { refresh(); });
    refresh();
}

QWidget* sounds_screen::make_row_of(std::size_t sound) {
    const QByteArray name = panel_sounds()[sound].name;
    sound_row row{
        new picture_view({grid::icon, grid::icon}), new message_label(text_role::CAPTION),
        new level_bar(MOST_VOLUME),
        new panel_button((name + "_softer").constData(), button_form::PICTURE, {}, ICON_CMN_OTHER_MINUS),
        new panel_button((name + "_louder").constData(), button_form::PICTURE, {}, ICON_CMN_OTHER_PLUS)};
    row.level->set_color(colors::quiet_text);
    for (panel_button* button : {row.softer, row.louder}) {
        button->setFixedSize(px(48), px(grid::touch));
        connect(button, &QAbstractButton::clicked, this,
                [this, sound, is_louder = button == row.louder] { change(sound, is_louder ? 1 : -1); });
    }
    rows_.push_back(row);
    auto* line = new card;
    auto* layout = new QHBoxLayout(line);
    layout->setContentsMargins(px(grid::margin), 0, px(grid::margin), 0);
    layout->setSpacing(px(grid::margin));
    layout->addWidget(row.picture);
    layout->addLayout(make_texts(panel_sounds()[sound].message, row.level), 1);
    layout->addWidget(row.bar);
    layout->addWidget(row.softer);
    layout->addWidget(row.louder);
    return line;
}

message_text sounds_screen::title() const {
    return MSG_NORMAL_DEVICE_SOUND_TITLE;
}

void sounds_screen::refresh() {
    bool has_sound = false;
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const panel_sound& sound = panel_sounds()[i];
        const std::size_t place = find_sound_level(sound, machine().sound().*sound.volume);
        const sound_level& level = sound.levels[place];
        rows_[i].picture->set_picture(
            QLatin1String(level.volume > 0 ? ICON_CMN_OTHER_SOUND : ICON_CMN_OTHER_MUTE));
        rows_[i].bar->set_level(level.volume);
        rows_[i].level->set_message(level.message);
        rows_[i].softer->setEnabled(place > 0);
        rows_[i].louder->setEnabled(place + 1 < sound.levels.size());
        has_sound = has_sound || place > 0;
    }
    mute_->setEnabled(has_sound);
}

void sounds_screen::change(std::size_t place, int direction) {
    const panel_sound& sound = panel_sounds()[place];
    sound_settings settings = machine().sound();
    const int level = static_cast<int>(find_sound_level(sound, settings.*sound.volume)) + direction;
    if (level >= 0 && level < static_cast<int>(sound.levels.size())) {
        settings.*sound.volume = sound.levels[static_cast<std::size_t>(level)].volume;
        settings.keys = settings.key_volume > 0;
        machine().set_sound(settings);
    }
}

void sounds_screen::mute() {
    sound_settings settings = machine().sound();
    for (const panel_sound& sound : panel_sounds()) {
        settings.*sound.volume = 0;
    }
    settings.keys = false;
    machine().set_sound(settings);
}

} // namespace velarion
