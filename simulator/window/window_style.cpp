#include "window_style.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>
#include <QToolTip>

namespace velarion {

namespace {

/** Menus, lists and dialogs are written as their window is: the panel's language turns the panel alone. */
class window_style : public QProxyStyle {
public:
    using QProxyStyle::polish;
    window_style()
        : QProxyStyle(QStringLiteral("Fusion")) {}

    void polish(QWidget* widget) override {
        const Qt::WindowType type = widget->windowType();
        if (type == Qt::Popup || type == Qt::Dialog || type == Qt::Tool || type == Qt::ToolTip) {
            widget->setLayoutDirection(Qt::LeftToRight);
        }
        QProxyStyle::polish(widget);
    }
    /** A painter knows the application's direction, not that of what it paints on. */
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
        painter->setLayoutDirection(option->direction);
        QProxyStyle::drawControl(element, option, painter, widget);
    }
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override {
        painter->setLayoutDirection(option->direction);
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
};

} // namespace

void set_window_style() {
    QApplication::setStyle(new window_style); // the application's
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
