#include "panel_button.h"

#include "focus_ring.h"
#include "panel_view_ids.h"
#include "units.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

namespace velarion {

namespace {

/** Picture ids of the grounds of buttons. */
constexpr const char* GROUND = ICON_CMN_OTHER_BUTTON_MEDIUM;
constexpr const char* GROUND_PRESSED = ICON_CMN_OTHER_BUTTON_MEDIUM_PRESSED;
constexpr const char* GROUND_SELECTED = ICON_CMN_OTHER_BUTTON_MEDIUM_SELECTED;
constexpr const char* GROUND_DISABLED = ICON_CMN_OTHER_BUTTON_MEDIUM_DISABLE;

constexpr int BADGE = 16;      // dp
constexpr double SHEEN = 0.3;  // of white on a primary button that is pressed
constexpr double RADIUS = 7.0; // px, of the grounds' corners

text_block text_of(button_form form) {
    switch (form) {
    case button_form::TILE:
        return text_block(text_role::BODY, Qt::AlignHCenter | Qt::AlignTop, true);
    case button_form::ROW:
        return text_block(text_role::BUTTON, Qt::AlignLeading | Qt::AlignVCenter, true);
    case button_form::SETTING:
        return text_block(text_role::CAPTION, Qt::AlignLeading | Qt::AlignVCenter);
    default:
        return text_block(text_role::BUTTON, Qt::AlignCenter, true);
    }
}

} // namespace

panel_button::panel_button(const char* name, button_form form, const message_text& text, const char* picture)
    : form_(form)
    , ground_(GROUND)
    , picture_(picture)
    , text_(text_of(form))
    , value_(text_role::BUTTON,
             (form == button_form::ROW ? Qt::AlignTrailing : Qt::AlignLeading) | Qt::AlignVCenter, true)
    , badge_(text_role::CAPTION, Qt::AlignCenter) {
    setObjectName(QLatin1String(name));
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(px(grid::touch), px(grid::touch));
    text_.set_message(text);
    connect(this, &QAbstractButton::pressed, this, [this] { choose_state(); });
    connect(this, &QAbstractButton::released, this, [this] { choose_state(); });
    connect(this, &QAbstractButton::toggled, this, [this] { choose_state(); });
}

void panel_button::set_message(const message_text& text) {
    if (!(text == text_.message())) {
        text_.set_message(text);
        updateGeometry();
        update();
    }
}

void panel_button::set_value(const message_text& value) {
    if (!(value == value_.message())) {
        value_.set_message(value);
        update();
    }
}

void panel_button::set_role(text_role role) {
    text_.set_role(role);
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

void panel_button::set_badge(const QString& badge) {
    badge_.set_message(message_text::literal(badge));
    update();
}

bool panel_button::shows_ground() const {
    return has_ground_ || (isEnabled() && (isDown() || isChecked()));
}

bool panel_button::is_lit() const {
    return isEnabled() && (isDown() || is_primary_);
}

void panel_button::set_picture_follows_direction(bool follows_direction) {
    follows_direction_ = follows_direction;
    update();
}

void panel_button::set_alert(bool is_alert) {
    is_alert_ = is_alert;
    update();
}

void panel_button::choose_state() {
    ground_.set_picture(QLatin1String(!isEnabled()  ? GROUND_DISABLED
                                      : is_lit()    ? GROUND_PRESSED
                                      : isChecked() ? GROUND_SELECTED
                                                    : GROUND));
    picture_.set_picture(picture_.id(), QLatin1String(!isEnabled() ? "_off" : is_lit() ? "_on" : ""));
    update();
}

button_boxes panel_button::boxes() const {
    return lay_out_button(form_, rect(), content(), layoutDirection());
}

QRect panel_button::badge_box(const QRect& picture) const {
    const int height = px(BADGE);
    const int width = qMax(height, badge_.size_hint(0).width() + px(grid::space));
    QRect box(0, 0, width, height);
    box.moveCenter(QPoint(picture.right(), picture.top() + px(2)));
    return layoutDirection() == Qt::LeftToRight ? box : box.translated(-picture.width(), 0);
}

QSize panel_button::sizeHint() const {
    return size_of_button(form_, content());
}

void panel_button::describe(panel_contents& contents) const {
    const button_boxes places = boxes();
    if (shows_ground()) {
        ground_.describe(rect(), contents);
    }
    picture_.describe(places.picture, contents);
    if (form_ != button_form::PICTURE) {
        text_.describe(places.text, contents);
        value_.describe(places.value, contents, places.value_room);
    }
    badge_.describe(badge_box(places.picture), contents);
}

void panel_button::reload() {
    ground_.reload();
    picture_.reload();
    text_.reload();
    value_.reload();
    badge_.reload();
}

void panel_button::changeEvent(QEvent* event) {
    if (event->type() == QEvent::EnabledChange) {
        setDown(false);
        choose_state();
    }
    QAbstractButton::changeEvent(event);
}

void panel_button::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
    } else {
        QAbstractButton::keyPressEvent(event);
    }
}

void panel_button::draw_badge(QPainter& painter, const QRect& box) const {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colors::warn);
    painter.drawRoundedRect(box, box.height() / 2.0, box.height() / 2.0);
    badge_.draw(painter, box, colors::on_accent, layoutDirection());
}

void panel_button::draw_own_ground(QPainter& painter) const {
    painter.setRenderHint(QPainter::Antialiasing);
    if (is_alert_ && !isDown()) {
        painter.setPen(QPen(colors::error, 2));
        painter.setBrush(colors::error_surface);
        painter.drawRoundedRect(rect().adjusted(1, 1, -1, -1), RADIUS, RADIUS);
    } else if (shows_ground()) {
        ground_.draw_ground(painter, rect());
    }
    if (is_primary_ && isDown()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor::fromRgbF(1, 1, 1, SHEEN));
        painter.drawRoundedRect(rect(), RADIUS, RADIUS);
    }
}

void panel_button::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const button_boxes places = boxes();
    draw_own_ground(painter);
    picture_.draw(painter, places.picture, follows_direction_ ? layoutDirection() : Qt::LeftToRight);
    if (form_ != button_form::PICTURE) {
        const QColor color = !isEnabled() ? colors::disabled_text
                             : is_lit()   ? colors::on_accent
                                          : colors::text;
        const bool is_name = form_ == button_form::SETTING && isEnabled() && !is_lit();
        text_.draw(painter, places.text, is_name ? colors::quiet_text : color, layoutDirection());
        value_.draw(painter, places.value, color, layoutDirection());
    }
    if (!badge_.text().isEmpty()) {
        draw_badge(painter, badge_box(places.picture));
    }
    draw_focus_ring(painter, *this, rect());
}

} // namespace velarion
