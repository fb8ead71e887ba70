#include "panel_stage.h"

#include "findings_overlay.h"
#include "units.h"

#include <QApplication>
#include <QPainter>

namespace velarion {

panel_stage::panel_stage(simulation& panel, const QString& forced_direction, bool has_overlay)
    : panel_(panel)
    , forced_direction_(forced_direction)
    , has_overlay_(has_overlay) {}

std::optional<screen_view> panel_stage::find_view(const QString& name) {
    for (const screen_view& view : all_screen_views()) {
        if (name == QLatin1String(view.name)) {
            return view;
        }
    }
    for (const screen_entry& screen : all_screens()) {
        if (name == QLatin1String(screen.name)) {
            return screen_view{screen.name, screen.name, nullptr};
        }
    }
    return std::nullopt;
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
    QImage image = panel_picture();
    if (has_overlay_) {
        QPainter painter(&image);
        draw_findings(painter, examiner_.examine(describe_panel(panel_.panel())));
    }
    return image;
}

QImage panel_stage::panel_picture() const {
    QImage image(PANEL_SIZE, QImage::Format_RGB32);
    panel_.panel().render(&image);
    return image;
}

/** Drawing lays the panel out. */
panel_contents panel_stage::contents() const {
    panel_picture();
    return describe_panel(panel_.panel());
}

bool panel_stage::is_right_to_left() const {
    return panel_.panel().layoutDirection() == Qt::RightToLeft;
}

} // namespace velarion
