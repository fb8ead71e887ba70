#include "panel_list.h"

#include "focus_ring.h"
#include "panel_view_ids.h"
#include "units.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace velarion {

namespace {

/** Picture ids of the grounds of rows. */
constexpr const char* GROUND = ICON_CMN_OTHER_LIST_1LINE;
constexpr const char* GROUND_PRESSED = ICON_CMN_OTHER_LIST_1LINE_PRESSED;
constexpr const char* GROUND_SELECTED = ICON_CMN_OTHER_LIST_1LINE_SELECTED;

constexpr int DRAG_START = 8;   // px that a finger moves before the list follows
constexpr int SCROLL_BAR = 4;   // dp
constexpr int VALUE_SHARE = 40; // % of a row's width that its value may take

int row_height() {
    return px(grid::row);
}

} // namespace

panel_list::panel_list() {
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void panel_list::set_rows(const std::vector<list_row>& rows) {
    if (rows == given_) {
        return;
    }
    given_ = rows;
    rows_.clear();
    for (const list_row& row : rows) {
        shown_row shown{row.name,
                        picture_block(row.is_chosen ? GROUND_SELECTED : GROUND),
                        {},
                        text_block(text_role::BODY, Qt::AlignLeading | Qt::AlignVCenter, true),
                        text_block(text_role::CAPTION, Qt::AlignTrailing | Qt::AlignVCenter, true),
                        row.is_chosen};
        shown.picture.set_picture(row.picture);
        shown.text.set_message(row.text);
        shown.value.set_message(row.value);
        rows_.push_back(std::move(shown));
    }
    current_ = qBound(0, current_, qMax(0, static_cast<int>(rows_.size()) - 1));
    scroll_to(offset_);
    show_chosen();
    press_row(pressed_);
    updateGeometry();
}

void panel_list::begin_anew() {
    is_used_ = false;
    show_chosen();
}

/** Keys begin there too. */
void panel_list::show_chosen() {
    const auto chosen =
        std::find_if(rows_.begin(), rows_.end(), [](const shown_row& row) { return row.is_chosen; });
    if (!is_used_ && chosen != rows_.end()) {
        current_ = static_cast<int>(chosen - rows_.begin());
        show_row(current_);
    }
}

int panel_list::find_row(const QString& name) const {
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        if (rows_[i].name == name) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

QStringList panel_list::row_names() const {
    QStringList names;
    for (const shown_row& row : rows_) {
        names.append(row.name);
    }
    return names;
}

panel_list::row_boxes panel_list::boxes_of(int row) const {
    const shown_row& shown = rows_[static_cast<std::size_t>(row)];
    const int height = row_height();
    const int space = px(grid::space);
    row_boxes boxes;
    boxes.row = QRect(0, row * height - offset_, width(), height - px(2));
    QRect inner = boxes.row.adjusted(px(grid::margin), px(2), -px(grid::margin), -px(2));
    if (!shown.picture.is_empty()) {
        const int size = px(grid::icon);
        boxes.picture = QRect(inner.left(), boxes.row.center().y() - size / 2, size, size);
        inner.setLeft(inner.left() + size + space);
    }
    boxes.text = inner;
    if (!shown.value.text().isEmpty()) {
        boxes.value = inner;
        boxes.value.setLeft(inner.right() - inner.width() * VALUE_SHARE / 100);
        boxes.text.setRight(boxes.value.left() - space);
    }
    for (QRect* box : {&boxes.picture, &boxes.text, &boxes.value}) {
        *box = QStyle::visualRect(layoutDirection(), boxes.row, *box);
    }
    return boxes;
}

int panel_list::row_at(int y) const {
    const int row = (y + offset_) / row_height();
    return y >= 0 && y < height() && row < static_cast<int>(rows_.size()) ? row : -1;
}

void panel_list::scroll_to(int offset) {
    offset_ = qBound(0, offset, last_offset());
    update();
}

int panel_list::last_offset() const {
    return qMax(0, static_cast<int>(rows_.size()) * row_height() - height());
}

QRect panel_list::show_row(int row) {
    const int top = row * row_height();
    if (top < offset_) {
        scroll_to(top);
    } else if (top + row_height() > offset_ + height()) {
        scroll_to(top + row_height() - height());
    }
    return boxes_of(row).row;
}

void panel_list::press_row(int row) {
    pressed_ = row;
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const bool is_pressed = static_cast<int>(i) == row;
        rows_[i].ground.set_picture(QLatin1String(is_pressed           ? GROUND_PRESSED
                                                  : rows_[i].is_chosen ? GROUND_SELECTED
                                                                       : GROUND));
    }
    update();
}

QSize panel_list::sizeHint() const {
    return {px(200), row_height() * qMax(1, static_cast<int>(rows_.size()))};
}

void panel_list::describe(panel_contents& contents) const {
    for (int i = 0; i < static_cast<int>(rows_.size()); ++i) {
        const row_boxes boxes = boxes_of(i);
        if (!rect().contains(boxes.row)) {
            continue; // not wholly seen: the reader scrolls
        }
        const shown_row& row = rows_[static_cast<std::size_t>(i)];
        row.ground.describe(boxes.row, contents);
        row.picture.describe(boxes.picture, contents);
        row.text.describe(boxes.text, contents);
        row.value.describe(boxes.value, contents);
    }
}

void panel_list::reload() {
    for (shown_row& row : rows_) {
        row.ground.reload();
        row.picture.reload();
        row.text.reload();
        row.value.reload();
    }
}

void panel_list::draw_row(QPainter& painter, int row) const {
    const row_boxes boxes = boxes_of(row);
    const shown_row& shown = rows_[static_cast<std::size_t>(row)];
    const bool is_pressed = row == pressed_;
    shown.ground.draw_ground(painter, boxes.row, layoutDirection());
    shown.picture.draw(painter, boxes.picture);
    shown.text.draw(painter, boxes.text, is_pressed ? colors::on_accent : colors::text, layoutDirection());
    shown.value.draw(painter, boxes.value, is_pressed ? colors::on_accent : colors::quiet_text,
                     layoutDirection());
    if (row == current_) {
        draw_focus_ring(painter, *this, boxes.row);
    }
}

void panel_list::draw_scroll_bar(QPainter& painter) const {
    if (last_offset() == 0) {
        return;
    }
    const int all = height() + last_offset();
    const QRect knob(width() - px(SCROLL_BAR), offset_ * height() / all, px(SCROLL_BAR),
                     height() * height() / all);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colors::disabled_text);
    painter.drawRoundedRect(QStyle::visualRect(layoutDirection(), rect(), knob), 2, 2);
}

void panel_list::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    for (int i = 0; i < static_cast<int>(rows_.size()); ++i) {
        if (rect().intersects(boxes_of(i).row)) {
            draw_row(painter, i);
        }
    }
    draw_scroll_bar(painter);
}

void panel_list::mousePressEvent(QMouseEvent* event) {
    is_used_ = true;
    drag_start_ = event->y();
    drag_offset_ = offset_;
    is_dragged_ = false;
    press_row(row_at(event->y()));
}

void panel_list::mouseMoveEvent(QMouseEvent* event) {
    if (!is_dragged_ && qAbs(event->y() - drag_start_) > DRAG_START) {
        is_dragged_ = true;
        press_row(-1);
    }
    if (is_dragged_) {
        scroll_to(drag_offset_ + drag_start_ - event->y());
    }
}

void panel_list::mouseReleaseEvent(QMouseEvent* event) {
    const int row = pressed_;
    press_row(-1);
    if (!is_dragged_ && row >= 0 && row == row_at(event->y())) {
        current_ = row;
        Q_EMIT chosen(row);
    }
}

void panel_list::wheelEvent(QWheelEvent* event) {
    is_used_ = true;
    scroll_to(offset_ - event->angleDelta().y() / 2);
}

void panel_list::keyPressEvent(QKeyEvent* event) {
    is_used_ = true;
    const int last = static_cast<int>(rows_.size()) - 1;
    switch (event->key()) {
    case Qt::Key_Up:
        current_ = qMax(0, current_ - 1);
        break;
    case Qt::Key_Down:
        current_ = qMin(last, current_ + 1);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (current_ <= last) {
            Q_EMIT chosen(current_);
        }
        return;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    if (last >= 0) {
        show_row(current_);
    }
}

void panel_list::resizeEvent(QResizeEvent*) {
    scroll_to(offset_);
    show_chosen();
}

} // namespace velarion
