#include "key_map.h"

#include "hard_key.h"
#include "panel_view_ids.h"
#include "units.h"

#include <QPainter>

namespace velarion {

namespace {

constexpr int COLUMNS = 5;
constexpr double RADIUS = 6.0; // px
constexpr int MARK = 6;        // dp, at the corner of a key that was pressed

struct key_place {
    int key;
    const char* picture = ""; ///< id; empty: the key's sign stands there
};

/** Row by row. */
constexpr key_place PLACES[] = {
    {KEY_HOME, ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_HOME},
    {KEY_BACK, ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_BACK},
    {KEY_STATUS, ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_JOB_LIST},
    {KEY_HELP, ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_HELP},
    {KEY_COPY, ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_COPY},
    {KEY_SCAN, ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_SCAN},
    {KEY_FAX, ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_FAX},
    {KEY_DOCUMENTS, ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_DOCUMENT_SERVER},
    {KEY_RESET, ICON_CMN_OTHER_RESET},
    {KEY_CLEAR, ICON_CMN_OTHER_CLOSE},
    {1},
    {2},
    {3},
    {4},
    {5},
    {6},
    {7},
    {8},
    {9},
    {0},
    {KEY_STAR},
    {KEY_HASH},
    {KEY_ENERGY_SAVER, ICON_NORMAL_OTHER_GLOBAL_NAVIGATION_ENERGY},
    {KEY_STOP, ICON_CMN_OTHER_STOP_KEY},
    {KEY_START, ICON_CMN_OTHER_START},
};
constexpr int ROWS = (static_cast<int>(sizeof PLACES / sizeof *PLACES) + COLUMNS - 1) / COLUMNS;

} // namespace

key_map::key_map() {
    setLayoutDirection(Qt::LeftToRight);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    for (const key_place& place : PLACES) {
        shown_key shown{place.key, picture_block(place.picture),
                        text_block(text_role::BUTTON, Qt::AlignCenter)};
        if (shown.picture.is_empty()) {
            shown.sign.set_message(message_text::literal(sign_of_key(place.key)));
        }
        keys_.push_back(std::move(shown));
    }
}

void key_map::set_down(int key, bool is_down) {
    if (is_down) {
        down_.insert(key);
        pressed_.insert(key);
    } else {
        down_.erase(key);
    }
    for (shown_key& shown : keys_) {
        shown.picture.set_picture(shown.picture.id(),
                                  QLatin1String(down_.count(shown.key) != 0 ? "_on" : ""));
    }
    update();
}

void key_map::set_pressed(int key) {
    pressed_.insert(key);
    update();
}

void key_map::release_all() {
    while (!down_.empty()) {
        set_down(*down_.begin(), false);
    }
}

QRect key_map::box_of(std::size_t place) const {
    const int gap = px(grid::gap);
    const int column = static_cast<int>(place) % COLUMNS;
    const int row = static_cast<int>(place) / COLUMNS;
    const auto edge = [gap](int number, int size, int count) { return number * (size + gap) / count; };
    const QPoint corner(edge(column, width(), COLUMNS), edge(row, height(), ROWS));
    return {corner,
            QPoint(edge(column + 1, width(), COLUMNS) - gap - 1, edge(row + 1, height(), ROWS) - gap - 1)};
}

QRect key_map::picture_box(const QRect& box) {
    QRect picture(0, 0, px(grid::icon), px(grid::icon));
    picture.moveCenter(box.center());
    return picture;
}

void key_map::describe(panel_contents& contents) const {
    for (std::size_t i = 0; i < keys_.size(); ++i) {
        keys_[i].picture.describe(picture_box(box_of(i)), contents);
        keys_[i].sign.describe(box_of(i), contents);
    }
}

void key_map::reload() {
    for (shown_key& shown : keys_) {
        shown.picture.reload();
        shown.sign.reload();
    }
}

void key_map::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    for (std::size_t i = 0; i < keys_.size(); ++i) {
        draw_key(painter, keys_[i], box_of(i));
    }
}

void key_map::draw_key(QPainter& painter, const shown_key& shown, const QRect& box) const {
    const bool is_down = down_.count(shown.key) != 0;
    const bool was_pressed = pressed_.count(shown.key) != 0;
    painter.setPen(QPen(is_down       ? colors::accent
                        : was_pressed ? colors::ok
                                      : colors::line,
                        was_pressed ? 2 : 1));
    painter.setBrush(is_down ? colors::accent : colors::surface);
    painter.drawRoundedRect(QRectF(box).adjusted(1, 1, -1, -1), RADIUS, RADIUS);
    shown.picture.draw(painter, picture_box(box));
    shown.sign.draw(painter, box, is_down ? colors::on_accent : colors::text, Qt::LeftToRight);
    if (was_pressed) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(is_down ? colors::on_accent : colors::ok);
        const int size = px(MARK);
        painter.drawEllipse(box.right() - size - px(grid::gap), box.top() + px(grid::gap), size, size);
    }
}

} // namespace velarion
