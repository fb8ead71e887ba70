#include "button_layout.h"

#include "units.h"

#include <QStyle>

namespace velarion {

namespace {

constexpr int TILE_WIDTH = 112;  // dp
constexpr int TILE_TEXT = 36;    // dp: two lines
constexpr int SETTING_NAME = 16; // dp
constexpr int SETTING_HEIGHT = 52;
constexpr int VALUE_SHARE = 50; // % of a row's text

QRect square(const QRect& rect, int size) {
    QRect box(0, 0, size, size);
    box.moveCenter(rect.center());
    return box;
}

/** The pictures of tiles in a row stand at one height, also where texts differ in length. */
button_boxes lay_out_tile(const QRect& rect) {
    const int picture = px(grid::large_icon);
    const int text = px(TILE_TEXT);
    const int space = px(grid::space);
    const int top = rect.top() + qMax(px(grid::gap), (rect.height() - picture - space - text * 2 / 3) / 2);
    button_boxes boxes;
    boxes.picture = QRect(rect.center().x() - picture / 2, top, picture, picture);
    const int edge = px(grid::gap);
    boxes.text = QRect(rect.left() + edge, top + picture + space, rect.width() - 2 * edge, text);
    boxes.text.setBottom(qMin(boxes.text.bottom(), rect.bottom() - edge));
    return boxes;
}

/** Picture and text in the middle, as one. */
button_boxes lay_out_text(const QRect& rect, const button_content& content) {
    button_boxes boxes;
    const int side = px(grid::space);
    boxes.text = rect.adjusted(side, px(grid::gap), -side, -px(grid::gap));
    if (content.has_picture) {
        const int picture = px(grid::icon);
        const int room = boxes.text.width() - picture - side;
        const int width = qMin(room, content.text.size_hint(room).width());
        boxes.picture = square(rect, picture);
        boxes.picture.moveLeft(rect.left() + (rect.width() - picture - side - width) / 2);
        boxes.text.setLeft(boxes.picture.right() + 1 + side);
        boxes.text.setWidth(width);
    }
    return boxes;
}

button_boxes lay_out_row(const QRect& rect, const button_content& content) {
    button_boxes boxes;
    const int side = px(grid::margin);
    boxes.text = rect.adjusted(side, px(grid::gap), -side, -px(grid::gap));
    if (content.has_picture) {
        boxes.picture = square(rect, px(grid::icon));
        boxes.picture.moveLeft(rect.left() + side);
        boxes.text.setLeft(boxes.picture.right() + 1 + side);
    }
    return boxes;
}

button_boxes lay_out_row_with_value(const QRect& rect, const button_content& content) {
    button_boxes boxes = lay_out_row(rect, content);
    if (!content.value.text().isEmpty()) {
        boxes.value = boxes.text;
        const int most = boxes.text.width() * VALUE_SHARE / 100;
        boxes.value.setLeft(boxes.text.right() + 1 - qMin(most, content.value.size_hint(most).width() + 1));
        boxes.value_room = QSize(most, boxes.value.height());
        boxes.text.setRight(boxes.value.left() - px(grid::space));
    }
    return boxes;
}

/** Name and value stand together in the middle. */
button_boxes lay_out_setting(const QRect& rect, const button_content& content) {
    button_boxes boxes = lay_out_row(rect, content);
    const int name = px(SETTING_NAME);
    const int room = boxes.text.height() - name;
    const int value = qMin(room, content.value.size_hint(boxes.text.width()).height());
    boxes.text.setTop(boxes.text.top() + (room - value) / 2);
    boxes.text.setHeight(name);
    boxes.value = boxes.text.translated(0, name);
    boxes.value.setHeight(value);
    boxes.value_room = QSize(boxes.value.width(), room);
    return boxes;
}

} // namespace

button_boxes lay_out_button(button_form form, const QRect& rect, const button_content& content,
                            Qt::LayoutDirection direction) {
    button_boxes boxes;
    switch (form) {
    case button_form::TILE:
        boxes = lay_out_tile(rect);
        break;
    case button_form::PICTURE:
        boxes.picture = square(rect, px(grid::icon));
        break;
    case button_form::ROW:
        boxes = lay_out_row_with_value(rect, content);
        break;
    case button_form::SETTING:
        boxes = lay_out_setting(rect, content);
        break;
    case button_form::TEXT:
        boxes = lay_out_text(rect, content);
        break;
    }
    for (QRect* box : {&boxes.picture, &boxes.text, &boxes.value}) {
        *box = QStyle::visualRect(direction, rect, *box);
    }
    return boxes;
}

QSize size_of_button(button_form form, const button_content& content) {
    const QSize needed = content.text.size_hint(PANEL_SIZE.width());
    const int picture = content.has_picture ? px(grid::icon + grid::space) : 0;
    switch (form) {
    case button_form::TILE:
        return {px(TILE_WIDTH), px(grid::large_icon + TILE_TEXT + 3 * grid::space)};
    case button_form::PICTURE:
        return {px(grid::touch), px(grid::touch)};
    case button_form::SETTING:
        return {needed.width() + picture + px(2 * grid::margin), px(SETTING_HEIGHT)};
    default:
        return {needed.width() + picture + px(2 * grid::margin), px(grid::touch)};
    }
}

} // namespace velarion
