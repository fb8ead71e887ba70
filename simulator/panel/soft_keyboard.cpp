#include "soft_keyboard.h"

#include "key_button.h"
#include "key_popup.h"
#include "theme.h"
#include "units.h"

#include <QEvent>
#include <QKeyEvent>

namespace velarion {

namespace {

constexpr int HOLD_STEPS = 5; // tenths of a second

double units_of(const std::vector<key_button*>& row) {
    double units = 0;
    for (const key_button* key : row) {
        units += key->key().width;
    }
    return units;
}

bool is_function(const keyboard_key& key, const char* name) {
    return key.function == QLatin1String(name);
}

/** The keys of a workstation that do what a key of the panel does. */
const char* function_of(int key) {
    switch (key) {
    case Qt::Key_Backspace:
        return "backspace";
    case Qt::Key_Left:
        return "left";
    case Qt::Key_Right:
        return "right";
    default:
        return "";
    }
}

/** How far a key is from another one in a direction, px; negative when it is not there at all. */
int distance(const QRect& from, const QRect& to, int direction) {
    const QPoint way = to.center() - from.center();
    const bool is_across = direction == Qt::Key_Left || direction == Qt::Key_Right;
    const bool is_back = direction == Qt::Key_Left || direction == Qt::Key_Up;
    const int along = (is_across ? way.x() : way.y()) * (is_back ? -1 : 1);
    const int aside = qAbs(is_across ? way.y() : way.x());
    const bool is_other_row = qAbs(way.y()) > from.height() / 2;
    return along <= 0 || is_across == is_other_row ? -1 : along * (is_across ? 1 : 8) + aside;
}

} // namespace

soft_keyboard::soft_keyboard(keyboard_input& input)
    : input_(input) {
    setLayoutDirection(Qt::LeftToRight);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    make_keys();
}

void soft_keyboard::make_keys() {
    const QPoint focus = focused_key();
    for (const auto& row : rows_) {
        for (key_button* key : row) {
            key->hide();
            key->setParent(nullptr);
            key->deleteLater(); // its own tap may have changed the layer
        }
    }
    rows_.clear();
    const auto& rows = input_.layer().rows;
    rows_.resize(rows.size());
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (const keyboard_key& key : rows[row]) {
            add_key(key, row);
        }
    }
    shown_board_ = input_.board_number();
    shown_layer_ = input_.layer().name;
    place_keys();
    const auto row = static_cast<std::size_t>(focus.y());
    if (focus.y() >= 0 && row < rows_.size() && !rows_[row].empty()) {
        const auto place = qMin(static_cast<std::size_t>(focus.x()), rows_[row].size() - 1);
        rows_[row][place]->setFocus(Qt::OtherFocusReason);
    }
}

/** The place in its row and the row of the key that has the focus; (-1, -1): none has it. */
QPoint soft_keyboard::focused_key() const {
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        for (std::size_t place = 0; place < rows_[row].size(); ++place) {
            if (window()->focusWidget() == rows_[row][place]) {
                return {static_cast<int>(place), static_cast<int>(row)};
            }
        }
    }
    return {-1, -1};
}

void soft_keyboard::close_popup() {
    if (popup_) {
        if (opener_ && popup_->isAncestorOf(window()->focusWidget())) {
            opener_->setFocus(Qt::OtherFocusReason);
        }
        popup_->hide();
        popup_->deleteLater(); // one of its own keys may have been tapped
        popup_ = nullptr;
    }
}

void soft_keyboard::reload() {
    close_popup();
    make_keys();
}

void soft_keyboard::add_key(const keyboard_key& key, std::size_t row) {
    auto* button = new key_button(key);
    button->setParent(this);
    button->set_direction(input_.board().is_right_to_left ? Qt::RightToLeft : Qt::LeftToRight);
    if (is_function(key, "space")) {
        button->set_label(input_.board().name);
    }
    if (is_function(key, "next")) {
        button->setEnabled(input_.board_count() > 1);
    }
    button->set_lit(is_function(key, "base") && input_.layer().name == QLatin1String("shift"));
    connect(button, &QAbstractButton::pressed, this, [this, button] {
        down_ = button;
        steps_down_ = 0;
    });
    connect(button, &QAbstractButton::released, this, [this] { down_ = nullptr; });
    connect(button, &QAbstractButton::clicked, this, [this, button] { tap(button->key()); });
    button->show();
    rows_[row].push_back(button);
}

void soft_keyboard::place_keys() {
    double most_units = 1;
    for (const auto& row : rows_) {
        most_units = qMax(most_units, units_of(row));
    }
    const int gap = px(grid::gap);
    const double unit = (width() + gap) / most_units;
    const int row_height = (height() + gap) / qMax(1, static_cast<int>(rows_.size()));
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        double left = (width() + gap - units_of(rows_[row]) * unit) / 2;
        for (key_button* key : rows_[row]) {
            const double right = left + key->key().width * unit;
            key->setGeometry(qRound(left), static_cast<int>(row) * row_height,
                             qRound(right) - qRound(left) - gap, row_height - gap);
            left = right;
        }
    }
}

void soft_keyboard::tap(const keyboard_key& key) {
    if (popup_) {
        close_popup();
        return;
    }
    input_.press(key);
    take_change();
    if (is_function(key, "enter")) {
        Q_EMIT entered();
    }
}

bool soft_keyboard::take_pc_key(const QKeyEvent& event) {
    const QString function = QLatin1String(function_of(event.key()));
    if (!function.isEmpty()) {
        input_.press({{}, {}, function, 1});
    } else if (!event.text().isEmpty() && event.text().at(0).isPrint()) {
        input_.type(event.text());
    } else {
        return false;
    }
    take_change();
    return true;
}

void soft_keyboard::take_change() {
    const bool is_other = shown_board_ != input_.board_number() || shown_layer_ != input_.layer().name;
    if (is_other) {
        make_keys();
    }
    Q_EMIT changed();
}

void soft_keyboard::step() {
    if (down_ && ++steps_down_ == HOLD_STEPS) {
        hold(*down_);
    }
}

void soft_keyboard::hold(key_button& key) {
    const keyboard_key held = key.key();
    if (is_function(held, "shift")) {
        key.let_go();
        input_.choose_layer(held.function, true);
        take_change();
    } else if (is_function(held, "next")) {
        QStringList names;
        for (int i = 0; i < input_.board_count(); ++i) {
            names.append(input_.board_name(i));
        }
        auto* popup = new key_popup(names);
        connect(popup, &key_popup::chosen, this, [this](int board) { input_.choose_board(board); });
        offer(key, popup);
    } else if (!held.held.isEmpty()) {
        QStringList characters;
        for (const uint character : held.held.toUcs4()) {
            characters.append(QString::fromUcs4(&character, 1));
        }
        auto* popup = new key_popup(characters);
        connect(popup, &key_popup::chosen, this, [this, characters](int i) { input_.type(characters[i]); });
        offer(key, popup);
    }
}

void soft_keyboard::offer(key_button& key, key_popup* popup) {
    key.let_go();
    close_popup();
    popup_ = popup;
    popup->setParent(this);
    connect(popup, &key_popup::chosen, this, [this] {
        close_popup();
        take_change();
    });
    const QSize size = popup->sizeHint();
    const int left = qBound(0, key.geometry().center().x() - size.width() / 2, width() - size.width());
    const int above = key.y() - size.height() - px(grid::gap);
    popup->setGeometry(
        QRect(QPoint(left, above >= 0 ? above : key.geometry().bottom() + px(grid::gap)), size));
    popup->show();
    popup->raise();
    if (window()->focusWidget() == &key) {
        popup->findChild<QAbstractButton*>()->setFocus(Qt::OtherFocusReason);
        opener_ = &key;
    }
}

/** @return whether there is a key in the direction */
bool soft_keyboard::move_focus(int direction) {
    const QWidget* from = window()->focusWidget();
    if (!from || from->parentWidget() != this) {
        return false;
    }
    key_button* nearest = nullptr;
    int least = -1;
    for (const auto& row : rows_) {
        for (key_button* key : row) {
            const int way = distance(from->geometry(), key->geometry(), direction);
            if (way >= 0 && (least < 0 || way < least)) {
                least = way;
                nearest = key;
            }
        }
    }
    if (nearest) {
        nearest->setFocus(Qt::OtherFocusReason);
    }
    return nearest != nullptr;
}

void soft_keyboard::resizeEvent(QResizeEvent*) {
    place_keys();
}

void soft_keyboard::keyPressEvent(QKeyEvent* event) {
    const bool is_arrow = event->key() >= Qt::Key_Left && event->key() <= Qt::Key_Down;
    event->setAccepted(is_arrow && move_focus(event->key()));
}

void soft_keyboard::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LayoutDirectionChange) {
        place_keys();
    }
    QWidget::changeEvent(event);
}

} // namespace velarion
