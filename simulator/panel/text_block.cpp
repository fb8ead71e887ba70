#include "text_block.h"

#include <QFontMetrics>
#include <QPainter>

namespace velarion {

namespace {

constexpr int UNBOUNDED = 100000; // px

bool fits(const QSize& needed, const QRect& box) {
    return needed.width() <= box.width() && needed.height() <= box.height();
}

/** The sizes that a text may be shown at, the largest first. */
std::vector<int> sizes_from(QFont font) {
    std::vector<int> sizes = {font.pixelSize()};
    for (font = smaller_font(font); font.pixelSize() != sizes.back(); font = smaller_font(font)) {
        sizes.push_back(font.pixelSize());
    }
    return sizes;
}

} // namespace

void text_block::set_message(const message_text& message) {
    message_ = message;
    reload();
}

void text_block::set_role(text_role role) {
    role_ = role;
    reload();
}

void text_block::reload() {
    text_ = message_.read();
    font_ = font_of(role_);
}

int text_block::flags() const {
    return static_cast<int>(alignment_) | (wraps_ ? Qt::TextWordWrap : 0);
}

QRect text_block::bounds(const QFont& font, const QRect& box) const {
    return QFontMetrics(font).boundingRect(box.adjusted(0, 0, wraps_ ? 0 : UNBOUNDED, UNBOUNDED), flags(),
                                           text_);
}

QSize text_block::size_hint(int width) const {
    return text_.isEmpty() ? QSize() : bounds(font_, QRect(0, 0, width, 0)).size();
}

QFont text_block::font_for(const QRect& box) const {
    QFont font = font_;
    while (!fits(bounds(font, box).size(), box)) {
        const QFont smaller = smaller_font(font);
        if (smaller.pixelSize() == font.pixelSize()) {
            break;
        }
        font = smaller;
    }
    return font;
}

void text_block::draw(QPainter& painter, const QRect& box, const QColor& color,
                      Qt::LayoutDirection direction) const {
    if (text_.isEmpty()) {
        return;
    }
    painter.setFont(font_for(box));
    painter.setPen(color);
    painter.setLayoutDirection(direction);
    painter.drawText(box, flags(), text_);
}

void text_block::describe(const QRect& box, panel_contents& contents, const QSize& room) const {
    if (text_.isEmpty()) {
        return;
    }
    shown_text shown;
    shown.message = message_;
    shown.text = text_;
    shown.box = box;
    shown.room = room;
    shown.font = font_for(box);
    shown.needed = bounds(shown.font, box).size();
    shown.font_sizes = sizes_from(font_);
    shown.wraps = wraps_;
    shown.alignment = alignment_;
    const QFontMetrics metrics(shown.font);
    shown.lines = 1 + qMax(0, shown.needed.height() - metrics.height() + metrics.lineSpacing() / 2) /
                          metrics.lineSpacing();
    contents.texts.push_back(shown);
}

} // namespace velarion
