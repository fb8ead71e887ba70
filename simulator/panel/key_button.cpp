#include "key_button.h"

#include "focus_ring.h"
#include "panel_view_ids.h"
#include "units.h"

#include <QKeyEvent>
#include <QPainter>

namespace velarion {

namespace {

/** Picture ids of the ground. */
constexpr const char* GROUND = ICON_SWKB_OTHER_KEYBOARD_BACKGROUND_1_0_LIGHT;
constexpr const char* GROUND_PRESSED = ICON_SWKB_OTHER_KEYBOARD_BACKGROUND_1_0_PRESSED;

struct function_picture {
    const char* function;
    const char* picture; ///< id
};

constexpr function_picture PICTURES[] = {
    {"shift", ICON_SWKB_OTHER_KEY_SHIFT},         {"enter", ICON_SWKB_OTHER_KEY_ENTER},
    {"backspace", ICON_SWKB_OTHER_KEY_BACKSPACE}, {"left", ICON_SWKB_OTHER_KEY_LEFT},
    {"right", ICON_SWKB_OTHER_KEY_RIGHT},         {"next", ICON_SWKB_OTHER_KEY_GLOBE},
    {"base", ICON_SWKB_OTHER_KEY_MODE},           {"symbols", ICON_SWKB_OTHER_KEY_SYMBOL_KEY},
};
constexpr const char* CAPITALS_PICTURE = ICON_SWKB_OTHER_KEY_SHIFT; // of {base} in the layer of capitals

/** The pictures show a cap with a shadow, which belongs to no key here: this part of them is drawn alone. */
constexpr int PICTURE_GRID = 48;
constexpr QRect PICTURE_PART(8, 4, 32, 36);

QString picture_of(const QString& function) {
    for (const function_picture& entry : PICTURES) {
        if (function == QLatin1String(entry.function)) {
            return QLatin1String(entry.picture);
        }
    }
    return {};
}

} // namespace

key_button::key_button(const keyboard_key& key)
    : key_(key)
    , ground_(GROUND)
    , text_(text_role::TITLE, Qt::AlignCenter)
    , hint_(text_role::CAPTION, Qt::AlignRight | Qt::AlignTop) {
    setObjectName(QStringLiteral("key_") + (key.function.isEmpty() ? key.text : key.function));
    setFocusPolicy(Qt::TabFocus);
    picture_.set_picture(picture_of(key.function));
    if (picture_.is_empty()) {
        set_label(key.function.isEmpty() ? key.text : key.function);
    }
    hint_.set_message(message_text::literal(key.held.left(1)));
    connect(this, &QAbstractButton::pressed, this, [this] { choose_state(); });
    connect(this, &QAbstractButton::released, this, [this] { choose_state(); });
}

void key_button::set_label(const QString& label) {
    picture_ = picture_block();
    text_.set_message(message_text::literal(label));
    if (label.size() > 1) {
        text_.set_role(text_role::BODY);
    }
    update();
}

void key_button::set_lit(bool is_lit) {
    is_lit_ = is_lit;
    if (is_lit && !picture_.is_empty()) {
        picture_.set_picture(QLatin1String(CAPITALS_PICTURE));
    }
    choose_state();
}

void key_button::let_go() {
    setDown(false);
    choose_state();
}

void key_button::choose_state() {
    const bool is_pressed = isDown() || is_lit_;
    ground_.set_picture(QLatin1String(is_pressed ? GROUND_PRESSED : GROUND));
    picture_.set_picture(picture_.id(), QLatin1String(is_pressed ? "_on" : ""));
    update();
}

int key_button::label_width() const {
    return text_.size_hint(PANEL_SIZE.width()).width() + px(2 * grid::space);
}

QSize key_button::sizeHint() const {
    return {qMax(px(grid::touch), label_width()), px(grid::touch)};
}

QRect key_button::picture_box() const {
    const int size = qMin(height(), width()) * 9 / 10;
    QRect box(0, 0, size, size);
    box.moveCenter(rect().center());
    return box;
}

void key_button::describe(panel_contents& contents) const {
    ground_.describe(rect(), contents);
    picture_.describe(picture_box(), contents);
    text_.describe(rect(), contents);
    hint_.describe(rect().adjusted(0, px(1), -px(grid::gap), 0), contents);
}

void key_button::reload() {
    ground_.reload();
    picture_.reload();
    text_.reload();
    hint_.reload();
}

void key_button::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const bool is_pressed = isDown() || is_lit_;
    ground_.draw_ground(painter, rect());
    text_.draw(painter, rect(), is_pressed ? colors::on_accent : colors::text, direction_);
    hint_.draw(painter, rect().adjusted(0, px(1), -px(grid::gap), 0),
               is_pressed ? colors::on_accent : colors::quiet_text, Qt::LeftToRight);
    const QRect box = picture_box();
    const int size = box.width();
    painter.setClipRect(QRect(box.left() + PICTURE_PART.left() * size / PICTURE_GRID,
                              box.top() + PICTURE_PART.top() * size / PICTURE_GRID,
                              PICTURE_PART.width() * size / PICTURE_GRID,
                              PICTURE_PART.height() * size / PICTURE_GRID));
    picture_.draw(painter, box);
    painter.setClipping(false);
    draw_focus_ring(painter, *this, rect());
}

/** Arrows go to the parent, which knows where the keys stand. */
void key_button::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
        event->ignore();
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        click();
        return;
    default:
        QAbstractButton::keyPressEvent(event);
    }
}

} // namespace velarion
