#include "status_pill.h"

#include "condition_text.h"
#include "focus_ring.h"
#include "machine_state.h"
#include "units.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

namespace velarion {

namespace {

constexpr int HEIGHT = 28;      // dp, of what is seen
constexpr int PICTURE = 18;     // dp
constexpr int MOST_WIDTH = 240; // dp

} // namespace

status_pill::status_pill(const machine_state& machine)
    : machine_(machine)
    , text_(text_role::CAPTION, Qt::AlignLeading | Qt::AlignVCenter, true) {
    setObjectName(QStringLiteral("status_pill"));
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    connect(&machine, &machine_state::changed, this, [this] { refresh(); });
    refresh();
}

void status_pill::refresh() {
    const message_text text = condition_text(machine_);
    const QColor color = condition_color(machine_);
    if (text == text_.message() && color == color_) {
        return;
    }
    color_ = color;
    is_fault_ = color == colors::error;
    text_.set_message(text);
    picture_.set_picture(QLatin1String(condition_picture(machine_)));
    updateGeometry();
    update();
}

QSize status_pill::sizeHint() const {
    const int text = text_.size_hint(PANEL_SIZE.width()).width() + 1;
    return {qMin(px(MOST_WIDTH), text + px(PICTURE + grid::gap + 2 * grid::margin)), px(grid::touch)};
}

QRect status_pill::pill_box() const {
    QRect box = rect();
    box.setHeight(px(HEIGHT));
    box.moveCenter(rect().center());
    return box;
}

QRect status_pill::picture_box() const {
    QRect box(0, 0, px(PICTURE), px(PICTURE));
    box.moveCenter(rect().center());
    box.moveLeft(px(grid::space));
    return QStyle::visualRect(layoutDirection(), rect(), box);
}

QRect status_pill::text_box() const {
    const QRect pill = pill_box();
    const QRect box(px(grid::space + PICTURE + grid::gap), pill.top(),
                    width() - px(grid::space + PICTURE + grid::gap + grid::margin), pill.height());
    return QStyle::visualRect(layoutDirection(), rect(), box);
}

void status_pill::describe(panel_contents& contents) const {
    picture_.describe(picture_box(), contents);
    const QRect box = text_box();
    text_.describe(box, contents, QSize(box.width() + px(MOST_WIDTH) - width(), box.height()));
}

void status_pill::reload() {
    picture_.reload();
    text_.reload();
}

void status_pill::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
    } else {
        QAbstractButton::keyPressEvent(event);
    }
}

void status_pill::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF pill = QRectF(pill_box()).adjusted(1, 1, -1, -1);
    painter.setPen(QPen(color_, 1.5));
    painter.setBrush(isDown() ? colors::line : is_fault_ ? colors::error_surface : colors::background);
    painter.drawRoundedRect(pill, pill.height() / 2, pill.height() / 2);
    picture_.draw(painter, picture_box());
    text_.draw(painter, text_box(), colors::text, layoutDirection());
    draw_focus_ring(painter, *this, pill_box());
}

} // namespace velarion
