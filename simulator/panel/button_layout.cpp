#include "button_layout.h"

#include "units.h"

#include <QStyle>

namespace velarion {

namespace {

constexpr int TILE_WIDTH = 112;  // dp
constexpr int TILE_TEXT = 36;    // dp: two lines
constexpr int SETTING_NAME = 16; // dp
constexpr int SETTING_HEIGHT = 52;

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
    boxes.text = QRect(rect.left() + space, top + picture + space, rect.width() - 2 * space, text);
    boxes.text.setBottom(qMin(boxes.text.bottom(), rect.bottom() - px(grid::gap)));
    return boxes;
}

/** Picture and text in the middle, as one. */
button_boxes lay_out_text(const QRect& rect, bool has_picture, const text_block& text) {
    button_boxes boxes;
    const int side = px(grid::space);
    boxes.text = rect.adjusted(side, px(grid::gap), -side, -px(grid::gap));
    if (has_picture) {
        const int picture = px(grid::icon);
        const int room = boxes.text.width() - picture - side;
        const int width = qMin(room, text.size_hint(room).width());
        boxes.picture = square(rect, picture);
        boxes.picture.moveLeft(rect.left() + (rect.width() - picture - side - width) / 2);
        boxes.text.setLeft(boxes.picture.right() + 1 + side);
        boxes.text.setWidth(width);
    }
    return boxes;
}

button_boxes lay_out_row(const QRect& rect, bool has_picture) {
    button_boxes boxes;
    const int side = px(grid::margin);
    boxes.text = rect.adjusted(side, px(grid::gap), -side, -px(grid::gap));
    if (has_picture) {
        boxes.picture = square(rect, px(grid::icon));
        boxes.picture.moveLeft(rect.left() + side);
        boxes.text.setLeft(boxes.picture.right() + 1 + side);
    }
    return boxes;
}

} // namespace

button_boxes lay_out_button(button_form form, const QRect& rect, bool has_picture, const text_block& text,
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
        boxes = lay_out_row(rect, has_picture);
        break;
    case button_form::SETTING:
        boxes = lay_out_row(rect, has_picture);
        boxes.value = boxes.text;
        boxes.text.setHeight(px(SETTING_NAME));
        boxes.value.setTop(boxes.text.bottom() + 1);
        break;
    case button_form::TEXT:
        boxes = lay_out_text(rect, has_picture, text);
        break;
    }
    for (QRect* box : {&boxes.picture, &boxes.text, &boxes.value}) {
        *box = QStyle::visualRect(direction, rect, *box);
    }
    return boxes;
}

QSize size_of_button(button_form form, bool has_picture, const text_block& text) {
    const QSize needed = text.size_hint(PANEL_SIZE.width());
    const int picture = has_picture ? px(grid::icon + grid::space) : 0;
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
