#include "text_field.h"

#include "focus_ring.h"
#include "panel_view_ids.h"
#include "theme.h"
#include "units.h"

#include <QMouseEvent>
#include <QPainter>

#include <cmath>

namespace velarion {

namespace {

/** Picture ids of the frame. */
constexpr const char* FRAME = ICON_CMN_OTHER_FRAME_INPUT_SELECTED;
constexpr const char* FRAME_REFUSED = ICON_CMN_OTHER_FRAME_INPUT_ERROR;

constexpr int CURSOR_WIDTH = 2; // px

} // namespace

text_field::text_field(const char* name)
    : frame_(FRAME) {
    setObjectName(QLatin1String(name));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void text_field::set_text(const QString& text, int cursor, Qt::LayoutDirection direction) {
    text_ = text;
    cursor_ = qBound(0, cursor, text.size());
    direction_ = direction;
    update();
}

void text_field::set_refused(bool is_refused) {
    frame_.set_picture(QLatin1String(is_refused ? FRAME_REFUSED : FRAME));
    update();
}

QSize text_field::sizeHint() const {
    return {px(grid::touch) * 4, px(grid::touch)};
}

QRect text_field::text_box() const {
    return rect().adjusted(px(grid::space), 0, -px(grid::space), 0);
}

QFont text_field::font() const {
    return font_of(text_role::TITLE);
}

void text_field::lay_out(QTextLayout& layout) const {
    QTextOption option(Qt::AlignLeft);
    option.setTextDirection(direction_);
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.setFont(font());
    layout.setText(text_);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
}

/** The left end of the text: at the side where the text begins, moved as far as the cursor needs it. */
int text_field::text_left(const QTextLine& line) const {
    const QRect box = text_box();
    const int width = static_cast<int>(std::ceil(line.naturalTextWidth())) + CURSOR_WIDTH;
    const int cursor = static_cast<int>(line.cursorToX(cursor_));
    int left = direction_ == Qt::RightToLeft ? box.right() + 1 - width : box.left();
    if (left + cursor + CURSOR_WIDTH > box.right()) {
        left = box.right() - cursor - CURSOR_WIDTH;
    }
    return left + cursor < box.left() ? box.left() - cursor : left;
}

void text_field::describe(panel_contents& contents) const {
    frame_.describe(rect(), contents);
    if (text_.isEmpty()) {
        return;
    }
    shown_text shown;
    shown.message = message_text::literal(text_);
    shown.text = text_;
    shown.box = text_box();
    shown.font = font();
    const QFontMetrics metrics(shown.font);
    shown.needed = QSize(qMin(metrics.horizontalAdvance(text_), shown.box.width()), metrics.height());
    contents.texts.push_back(shown);
}

void text_field::reload() {
    frame_.reload();
    update();
}

void text_field::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    frame_.draw_ground(painter, rect());
    QTextLayout layout;
    lay_out(layout);
    const QTextLine line = layout.lineAt(0);
    const int left = text_left(line);
    const int height = static_cast<int>(std::ceil(line.height()));
    const int top = (rect().height() - height) / 2;
    painter.setClipRect(text_box());
    painter.setPen(colors::text);
    layout.draw(&painter, QPointF(left, top));
    painter.fillRect(left + static_cast<int>(line.cursorToX(cursor_)), top, CURSOR_WIDTH, height,
                     colors::accent);
    painter.setClipping(false);
    draw_focus_ring(painter, *this, rect());
}

void text_field::mousePressEvent(QMouseEvent* event) {
    QTextLayout layout;
    lay_out(layout);
    const QTextLine line = layout.lineAt(0);
    Q_EMIT touched(line.xToCursor(event->pos().x() - text_left(line)));
}

} // namespace velarion
