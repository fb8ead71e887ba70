#include "window_style.h"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>
#include <QToolTip>

namespace velarion {

void set_window_style() {
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QPalette palette(window_colors::button, window_colors::ground);
    const auto set_color = [&palette](QPalette::ColorRole role, const QColor& color) {
        palette.setColor(role, color);
    };
    set_color(QPalette::Window, window_colors::ground);
    set_color(QPalette::Base, window_colors::field);
    set_color(QPalette::AlternateBase, window_colors::other_row);
    set_color(QPalette::ToolTipBase, window_colors::field);
    set_color(QPalette::Highlight, window_colors::accent);
    set_color(QPalette::HighlightedText, Qt::white);
    set_color(QPalette::Link, window_colors::link);
    set_color(QPalette::PlaceholderText, window_colors::quiet_text);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        set_color(role, window_colors::text);
        palette.setColor(QPalette::Disabled, role, window_colors::disabled_text);
    }
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
}

} // namespace velarion
