#include "text_block.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTextLayout>

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

/** The lines into which a text is broken, without the blanks at their ends. */
QStringList lines_of(const QString& text, const QFont& font, int width) {
    QStringList lines;
    for (const QString& paragraph : text.split(QLatin1Char('\n'))) {
        QTextLayout layout(paragraph, font);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(width);
            lines.append(paragraph.mid(line.textStart(), line.textLength()).trimmed());
        }
        layout.endLayout();
    }
    return lines;
}

/** Scripts without blanks between words break anywhere: one character alone looks like a slip. */
bool leaves_one_character(const QString& text, const QFont& font, int width) {
    const QStringList lines = lines_of(text, font, width);
    return lines.size() > 1 && lines.last().size() == 1;
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
    if (wraps_ && leaves_one_character(text_, font, box.width()) &&
        !leaves_one_character(text_, smaller_font(font), box.width())) {
        font = smaller_font(font);
    }
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
    const QFont font = font_for(box);
    const bool breaks_lines = wraps_ && direction == Qt::RightToLeft;
    painter.setFont(font);
    painter.setPen(color);
    painter.setLayoutDirection(direction);
    // The painter leaves the blank of a line's end at the edge where lines from right to left begin.
    painter.drawText(box, flags(),
                     breaks_lines ? lines_of(text_, font, box.width()).join(QLatin1Char('\n')) : text_);
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
