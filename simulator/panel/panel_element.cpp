#include "panel_element.h"

#include <QWidget>

namespace velarion {

panel_contents describe_panel(const QWidget& panel) {
    panel_contents all;
    for (const QWidget* widget : panel.findChildren<QWidget*>()) {
        const auto* element = dynamic_cast<const panel_element*>(widget);
        if (!element || !widget->isVisibleTo(&panel)) {
            continue;
        }
        panel_contents own;
        element->describe(own);
        const QPoint corner = widget->mapTo(&panel, QPoint());
        for (shown_text& text : own.texts) {
            text.box.translate(corner);
            all.texts.push_back(std::move(text));
        }
        for (shown_picture& picture : own.pictures) {
            picture.box.translate(corner);
            all.pictures.push_back(std::move(picture));
        }
    }
    return all;
}

void reload_panel(QWidget& panel) {
    for (QWidget* widget : panel.findChildren<QWidget*>()) {
        if (auto* element = dynamic_cast<panel_element*>(widget)) {
            element->reload();
            widget->updateGeometry();
            widget->update();
        }
    }
}

} // namespace velarion
