#include "theme.h"

#include "dvc_pnl_rmg_language_resource.h"
#include "units.h"

#include <QPainter>
#include <QWidget>

namespace velarion {

namespace {

constexpr double SURFACE_RADIUS = 8.0; // px

struct type_step {
    text_role role;
    int dp;
    bool is_bold;
};

constexpr type_step TYPE_SCALE[] = {{text_role::CAPTION, 11, false},
                                    {text_role::BODY, 14, false},
                                    {text_role::BUTTON, 14, true},
                                    {text_role::TITLE, 17, true},
                                    {text_role::NUMBER, 34, false}};

} // namespace

/** Glyphs are drawn alike on every desktop, whatever its scaling and its settings of fonts. */
QFont font_of(text_role role) {
    QFont font = dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_instance()->dvc_pnl_rmg_get_font();
    font.setHintingPreference(QFont::PreferVerticalHinting);
    font.setStyleStrategy(QFont::StyleStrategy(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    for (const type_step& step : TYPE_SCALE) {
        if (step.role == role) {
            font.setPixelSize(px(step.dp));
            font.setBold(step.is_bold);
        }
    }
    return font;
}

QFont smaller_font(const QFont& font) {
    QFont smaller = font;
    int best = px(TYPE_SCALE[0].dp);
    for (const type_step& step : TYPE_SCALE) {
        if (px(step.dp) < font.pixelSize() && px(step.dp) > best) {
            best = px(step.dp);
        }
    }
    smaller.setPixelSize(qMin(best, font.pixelSize()));
    return smaller;
}

void paint_surface(QWidget& widget) {
    QPainter painter(&widget);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colors::surface);
    painter.drawRoundedRect(widget.rect(), SURFACE_RADIUS, SURFACE_RADIUS);
}

} // namespace velarion
