#include "panel_stage.h"

#include "units.h"

#include <QApplication>

namespace velarion {

panel_stage::panel_stage(simulation& panel, const QString& forced_direction)
    : panel_(panel)
    , forced_direction_(forced_direction) {}

const screen_view* panel_stage::find_view(const QString& name) {
    for (const screen_view& view : all_screen_views()) {
        if (name == QLatin1String(view.name)) {
            return &view;
        }
    }
    return nullptr;
}

void panel_stage::show(const screen_view& view, const language_choice& language) {
    panel_.start_anew();
    show_language(language);
    if (view.prepare) {
        view.prepare(panel_.machine());
    }
    panel_.panel().open(QLatin1String(view.screen));
}

void panel_stage::show_language(const language_choice& language) {
    panel_.choose_preferred_language(language);
    if (!forced_direction_.isEmpty()) {
        QApplication::setLayoutDirection(forced_direction_ == QLatin1String("rtl") ? Qt::RightToLeft
                                                                                   : Qt::LeftToRight);
    }
}

QImage panel_stage::picture() const {
    QImage image(PANEL_SIZE, QImage::Format_RGB32);
    panel_.panel().render(&image);
    return image;
}

/** Drawing lays the panel out. */
panel_contents panel_stage::contents() const {
    picture();
    return describe_panel(panel_.panel());
}

bool panel_stage::is_right_to_left() const {
    return panel_.panel().layoutDirection() == Qt::RightToLeft;
}

} // namespace velarion
