#include "device_face.h"

#include "device_link.h"
#include "face_style.h"
#include "hard_key_button.h"
#include "led_lamp.h"
#include "panel_view.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QPainter>

namespace velarion {

namespace {

constexpr int BEZEL = 8; // logical pixels, as all below
constexpr int MARGIN = 12;
constexpr int KEY_GAP = 5;
constexpr int GROUP_GAP = 20;
constexpr double RADIUS = 8;

/** Where a key stands: row and column of its group, and how many rows it takes. */
struct key_place {
    int key;
    int row;
    int column;
    int rows = 1;
};

const std::vector<std::vector<key_place>>& key_groups() {
    static const std::vector<std::vector<key_place>> groups = {{{KEY_HOME, 0, 0},
                                                                {KEY_BACK, 0, 1},
                                                                {KEY_STATUS, 0, 2},
                                                                {KEY_HELP, 0, 3},
                                                                {KEY_COPY, 1, 0},
                                                                {KEY_SCAN, 1, 1},
                                                                {KEY_FAX, 1, 2},
                                                                {KEY_DOCUMENTS, 1, 3}},
                                                               {{1, 0, 0},
                                                                {2, 0, 1},
                                                                {3, 0, 2},
                                                                {4, 0, 3},
                                                                {5, 0, 4},
                                                                {KEY_STAR, 0, 5},
                                                                {6, 1, 0},
                                                                {7, 1, 1},
                                                                {8, 1, 2},
                                                                {9, 1, 3},
                                                                {0, 1, 4},
                                                                {KEY_HASH, 1, 5}},
                                                               {{KEY_ENERGY_SAVER, 0, 0},
                                                                {KEY_RESET, 1, 0},
                                                                {KEY_CLEAR, 0, 1},
                                                                {KEY_STOP, 1, 1},
                                                                {KEY_START, 0, 2, 2}}};
    return groups;
}

const hard_key_entry& entry_of(int key) {
    for (const hard_key_entry& entry : hard_keys()) {
        if (entry.key == key) {
            return entry;
        }
    }
    return hard_keys().front();
}

} // namespace

device_face::device_face(panel_view* view, device_link& link)
    : view_(view)
    , link_(link) {
    setLayoutDirection(Qt::LeftToRight); // hardware does not turn with the language
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(MARGIN + BEZEL, MARGIN + BEZEL, MARGIN + BEZEL, MARGIN);
    layout->setSpacing(0);
    view_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    layout->addStretch();
    layout->addWidget(view_, 0, Qt::AlignHCenter);
    layout->addSpacing(BEZEL + 4);
    layout->addWidget(make_lamps(), 0, Qt::AlignHCenter);
    layout->addSpacing(6);
    layout->addWidget(make_keys(), 0, Qt::AlignHCenter);
    layout->addStretch();
}

QWidget* device_face::make_lamps() {
    auto* strip = new QWidget;
    auto* layout = new QHBoxLayout(strip);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(GROUP_GAP);
    for (int led = 0; led < LED_COUNT; ++led) {
        layout->addWidget(new led_lamp(led, link_));
    }
    return strip;
}

QWidget* device_face::make_keys() {
    auto* strip = new QWidget;
    auto* groups = new QHBoxLayout(strip);
    groups->setContentsMargins(0, 0, 0, 0);
    groups->setSpacing(GROUP_GAP);
    for (const std::vector<key_place>& group : key_groups()) {
        auto* grid = new QGridLayout;
        grid->setSpacing(KEY_GAP);
        for (const key_place& place : group) {
            auto* button = new hard_key_button(entry_of(place.key));
            const int key = place.key;
            connect(button, &QAbstractButton::pressed, this, [this, key] { link_.move_key(key, true); });
            connect(button, &QAbstractButton::released, this, [this, key] { link_.move_key(key, false); });
            connect(&link_, &panel_hardware::key_changed, button, [button](int changed, bool is_pressed) {
                if (changed == button->key()) {
                    button->show_held(is_pressed);
                }
            });
            connect(&link_, &panel_hardware::presence_changed, button,
                    [button] { button->show_held(false); });
            grid->addWidget(button, place.row, place.column, place.rows, 1);
        }
        groups->addLayout(grid);
    }
    return strip;
}

void device_face::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), face_colors::body);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(face_colors::bezel);
    painter.drawRoundedRect(view_->geometry().adjusted(-BEZEL, -BEZEL, BEZEL, BEZEL), RADIUS, RADIUS);
}

} // namespace velarion
