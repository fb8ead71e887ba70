#include "hard_key_button.h"

#include "face_style.h"
#include "pc_keys.h"

#include <QPainter>
#include <QPainterPath>

namespace velarion {

namespace {

constexpr int HEIGHT = 42; // logical pixels, as all below
constexpr int LEAST_WIDTH = 50;
constexpr int MARGIN = 8;
constexpr double RADIUS = 6;
constexpr double SIGN_SIZE = 13; // points, of a single character
constexpr double WORD_SIZE = 8.5;

QColor color_of(int key) {
    return key == KEY_START  ? face_colors::start_key
           : key == KEY_STOP ? face_colors::stop_key
                             : face_colors::key;
}

} // namespace

hard_key_button::hard_key_button(const hard_key_entry& entry)
    : key_(entry.key) {
    setText(QLatin1String(entry.label));
    setObjectName(QStringLiteral("key_") + QLatin1String(entry.name));
    setFocusPolicy(Qt::TabFocus);
    QFont own = font();
    own.setPointSizeF(text().size() == 1 ? SIGN_SIZE : WORD_SIZE);
    own.setBold(true);
    setFont(own);
    const QString pc_key = pc_key_text(key_);
    setToolTip(pc_key.isEmpty() ? QStringLiteral("Key %1").arg(key_)
                                : QStringLiteral("Key %1: %2").arg(key_).arg(pc_key));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void hard_key_button::show_held(bool is_held) {
    is_held_ = is_held;
    update();
}

/** A label of several words has a line for each. */
QSize hard_key_button::sizeHint() const {
    int widest = LEAST_WIDTH;
    for (const QString& word : text().split(QLatin1Char(' '))) {
        widest = qMax(widest, fontMetrics().horizontalAdvance(word) + 2 * MARGIN);
    }
    return {widest, HEIGHT};
}

void hard_key_button::paintEvent(QPaintEvent*) {
    const bool is_low = isDown() || is_held_;
    const QColor color = color_of(key_);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF box = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
    painter.setPen(QPen(hasFocus() ? face_colors::focus : color.lighter(125), hasFocus() ? 2 : 1));
    painter.setBrush(is_low ? color.darker(150) : color);
    painter.drawRoundedRect(box, RADIUS, RADIUS);
    painter.setPen(face_colors::key_text);
    QString label = text();
    painter.drawText(rect().translated(0, is_low ? 1 : 0), Qt::AlignCenter,
                     label.replace(QLatin1Char(' '), QLatin1Char('\n')));
}

} // namespace velarion
