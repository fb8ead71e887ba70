#include "message_label.h"

#include "units.h"

#include <QPainter>

namespace velarion {

message_label::message_label(text_role role, Qt::Alignment alignment)
    : text_(role, alignment)
    , color_(colors::text) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

void message_label::set_message(const message_text& message) {
    if (!(message == text_.message())) {
        text_.set_message(message);
        updateGeometry();
        update();
    }
}

void message_label::set_color(const QColor& color) {
    color_ = color;
    update();
}

void message_label::set_wraps(bool wraps) {
    wraps_ = wraps;
    text_.set_wraps(wraps);
    QSizePolicy policy = sizePolicy();
    policy.setHeightForWidth(wraps);
    setSizePolicy(policy);
}

QSize message_label::sizeHint() const {
    return text_.size_hint(PANEL_SIZE.width());
}

int message_label::heightForWidth(int width) const {
    return text_.size_hint(width).height();
}

void message_label::describe(panel_contents& contents) const {
    text_.describe(rect(), contents);
}

void message_label::reload() {
    text_.reload();
}

void message_label::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    text_.draw(painter, rect(), color_, layoutDirection());
}

} // namespace velarion
