#include "panel_button.h"

#include "units.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>

namespace velarion {

namespace {

/** Picture ids of the grounds of buttons. */
constexpr char GROUND[] = "123";          // ICON_CMN_OTHER_BUTTON_MEDIUM
constexpr char GROUND_PRESSED[] = "124";  // ..._PRESSED
constexpr char GROUND_SELECTED[] = "125"; // ..._SELECTED
constexpr char GROUND_DISABLED[] = "126"; // ..._DISABLE

text_block text_of(button_form form) {
    switch (form) {
    case button_form::TILE:
        return text_block(text_role::BODY, Qt::AlignHCenter | Qt::AlignTop, true);
    case button_form::ROW:
        return text_block(text_role::BUTTON, Qt::AlignLeading | Qt::AlignVCenter, true);
    default:
        return text_block(text_role::BUTTON, Qt::AlignCenter, true);
    }
}

} // namespace

panel_button::panel_button(const char* name, button_form form, const message_text& text, const char* picture)
    : form_(form)
    , ground_(GROUND)
    , picture_(picture)
    , text_(text_of(form)) {
    setObjectName(QLatin1String(name));
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(px(grid::touch), px(grid::touch));
    text_.set_message(text);
    connect(this, &QAbstractButton::pressed, this, [this] { choose_state(); });
    connect(this, &QAbstractButton::released, this, [this] { choose_state(); });
    connect(this, &QAbstractButton::toggled, this, [this] { choose_state(); });
}

void panel_button::set_message(const message_text& text) {
    text_.set_message(text);
    updateGeometry();
    update();
}

void panel_button::set_picture(const char* picture) {
    picture_.set_picture(QLatin1String(picture));
    choose_state();
}

void panel_button::set_ground(bool has_ground) {
    has_ground_ = has_ground;
    update();
}

void panel_button::set_primary(bool is_primary) {
    is_primary_ = is_primary;
    choose_state();
}

void panel_button::choose_state() {
    const bool is_lit = isEnabled() && (isDown() || is_primary_);
    ground_.set_picture(QLatin1String(!isEnabled()  ? GROUND_DISABLED
                                      : is_lit      ? GROUND_PRESSED
                                      : isChecked() ? GROUND_SELECTED
                                                    : GROUND));
    picture_.set_picture(picture_.id(), QLatin1String(!isEnabled()            ? "_off"
                                                      : is_lit && has_ground_ ? "_on"
                                                                              : ""));
    update();
}

QRect panel_button::picture_box() const {
    const int size = px(form_ == button_form::TILE ? grid::large_icon : grid::icon);
    QRect box(0, 0, size, size);
    if (form_ == button_form::TILE) {
        box.moveCenter(rect().center());
        box.moveTop(px(grid::space));
    } else if (form_ == button_form::PICTURE) {
        box.moveCenter(rect().center());
    } else {
        box.moveCenter(rect().center());
        box.moveLeft(px(grid::space));
        box = QStyle::visualRect(layoutDirection(), rect(), box);
    }
    return box;
}

QRect panel_button::text_box() const {
    const int side = px(grid::space);
    QRect box = rect().adjusted(side, px(grid::gap), -side, -px(grid::gap));
    if (form_ == button_form::TILE) {
        box.setTop(px(grid::space + grid::large_icon + grid::gap));
    } else if (form_ == button_form::ROW) {
        box.setLeft(px(2 * grid::space + grid::icon));
        box = QStyle::visualRect(layoutDirection(), rect(), box);
    }
    return box;
}

QColor panel_button::text_color() const {
    if (!isEnabled()) {
        return colors::disabled_text;
    }
    return (isDown() || is_primary_) && has_ground_ ? colors::on_accent : colors::text;
}

QSize panel_button::sizeHint() const {
    const QSize text = form_ == button_form::PICTURE ? QSize() : text_.size_hint(PANEL_SIZE.width());
    switch (form_) {
    case button_form::TILE:
        return {px(112), px(grid::large_icon + 3 * grid::space + 2 * 17)};
    case button_form::PICTURE:
        return {px(grid::touch), px(grid::touch)};
    case button_form::ROW:
        return {text.width() + px(3 * grid::space + grid::icon), px(grid::touch)};
    default:
        return {text.width() + px(2 * grid::margin), px(grid::touch)};
    }
}

void panel_button::describe(panel_contents& contents) const {
    if (has_ground_) {
        ground_.describe(rect(), contents);
    }
    picture_.describe(picture_box(), contents);
    if (form_ != button_form::PICTURE) {
        text_.describe(text_box(), contents);
    }
}

void panel_button::reload() {
    ground_.reload();
    picture_.reload();
    text_.reload();
}

void panel_button::changeEvent(QEvent* event) {
    if (event->type() == QEvent::EnabledChange) {
        choose_state();
    }
    QAbstractButton::changeEvent(event);
}

void panel_button::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (has_ground_) {
        ground_.draw_ground(painter, rect());
    }
    picture_.draw(painter, picture_box());
    if (form_ != button_form::PICTURE) {
        text_.draw(painter, text_box(), text_color(), layoutDirection());
    }
    if (window()->focusWidget() == this) {
        painter.setPen(QPen(colors::text, 2));
        painter.drawRoundedRect(rect().adjusted(2, 2, -3, -3), 6, 6);
    }
}

} // namespace velarion
