#include "hardware_tab.h"

#include "device_link.h"
#include "device_names.h"
#include "hard_key.h"
#include "tables.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace velarion {

namespace {

constexpr int KEY_COLUMNS = 5;
constexpr int MOST_DELAY = 10000; // ms
constexpr int MOST_RESULT = 99;
constexpr int VALUE_ROW = 3;      // below the buttons
constexpr int TWO_LINES = 32;     // px
constexpr int TEXT_REFRESH = 500; // ms: the text tells for how long

struct service_button {
    const char* label;
    const char* command;
    const char* hint;
};

constexpr service_button SERVICE_BUTTONS[] = {
    {"Start", "start", "Starts the device service"},
    {"Stop", "stop", "Ends it as a machine that is switched off"},
    {"Kill", "kill", "Ends it without warning"},
    {"Restart", "restart", "Ends it and starts it"},
    {"Pause", "pause", "It hangs: it takes no message"},
    {"Go on", "continue", "It works again after a pause"},
    {"Drop", "drop", "It leaves every request without an answer"},
    {"Crash", "crash", "It ends at the next request"},
    {"Normal", "normal", "It misbehaves no longer"},
};

QPushButton* new_button(const QString& text) {
    auto* button = new QPushButton(text);
    button->setAutoDefault(false);
    button->setMinimumWidth(30);
    return button;
}

QSpinBox* new_field(int least, int most, int value, const char* unit) {
    auto* field = new QSpinBox;
    field->setRange(least, most);
    field->setValue(value);
    field->setSuffix(QLatin1String(unit));
    return field;
}

/** A group without room to spare: all of the tab stands on a screen 800 high. */
QGroupBox* new_group(const char* title, QGridLayout*& layout) {
    auto* group = new QGroupBox(QLatin1String(title));
    layout = new QGridLayout(group);
    layout->setContentsMargins(6, 2, 6, 4);
    layout->setHorizontalSpacing(4);
    layout->setVerticalSpacing(3);
    return group;
}

QString status_text(int status) {
    return status == led_state::UNKNOWN ? QString(QChar(0x2013))
                                        : QString::fromStdString(led_status_name(status));
}

} // namespace

hardware_tab::hardware_tab(device_link& link, service_command run_command)
    : link_(link)
    , run_command_(std::move(run_command))
    , leds_(new_table({QStringLiteral("LED"), QStringLiteral("Asked for"), QStringLiteral("Service says"),
                       QStringLiteral("Lit")},
                      0)) {
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(4);
    layout->addWidget(make_service());
    layout->addWidget(make_keys());
    layout->addWidget(leds_, 1);
    for (int led = 0; led < LED_COUNT; ++led) {
        add_row(leds_, {QString::fromStdString(led_name(led))});
        show_led(led);
    }
    connect(&link_, &panel_hardware::led_changed, this, &hardware_tab::show_led);
    connect(&link_.watch(), &service_watch::changed, this, &hardware_tab::show_service);
    connect(&clock_, &QTimer::timeout, this, &hardware_tab::show_service);
    clock_.start(TEXT_REFRESH);
    show_service();
}

QWidget* hardware_tab::make_service() {
    QGridLayout* layout = nullptr;
    QGroupBox* group = new_group("Device service", layout);
    service_ = new QLabel;
    service_->setWordWrap(true);
    service_->setMinimumHeight(TWO_LINES); // buttons stay in their places
    layout->addWidget(service_, 0, 0, 1, KEY_COLUMNS);
    int place = KEY_COLUMNS;
    for (const service_button& entry : SERVICE_BUTTONS) {
        auto* button = new_button(QLatin1String(entry.label));
        button->setToolTip(QLatin1String(entry.hint));
        const QString command = QLatin1String(entry.command);
        connect(button, &QPushButton::clicked, this, [this, command] { run({command}); });
        layout->addWidget(button, place / KEY_COLUMNS, place % KEY_COLUMNS);
        ++place;
    }
    add_value(*layout, 0, "Delay", "delay", new_field(1, MOST_DELAY, 2000, " ms"));
    add_value(*layout, 3, "Refuse", "refuse", new_field(1, MOST_RESULT, 1, ""));
    return group;
}

void hardware_tab::add_value(QGridLayout& layout, int column, const char* label, const char* command,
                             QSpinBox* field) {
    auto* button = new_button(QLatin1String(label));
    const QString word = QLatin1String(command);
    field->setAccessibleName(QLatin1String(label));
    connect(button, &QPushButton::clicked, this, [this, word, field] {
        run({word, QString::number(field->value())});
    });
    layout.addWidget(button, VALUE_ROW, column);
    layout.addWidget(field, VALUE_ROW, column + 1, 1, column == 0 ? 2 : 1);
}

QWidget* hardware_tab::make_keys() {
    QGridLayout* layout = nullptr;
    QGroupBox* group = new_group("Hard keys", layout);
    int place = 0;
    for (const hard_key_entry& entry : hard_keys()) {
        auto* button = new_button(QLatin1String(entry.label));
        const int key = entry.key;
        connect(button, &QPushButton::pressed, this, [this, key] { link_.move_key(key, true); });
        connect(button, &QPushButton::released, this, [this, key] { link_.move_key(key, false); });
        layout->addWidget(button, place / KEY_COLUMNS, place % KEY_COLUMNS);
        ++place;
    }
    return group;
}

void hardware_tab::run(const QStringList& words) {
    const QString fault = run_command_(words);
    Q_EMIT told(fault.isEmpty() ? QStringLiteral("Device service: %1").arg(words.join(QLatin1Char(' ')))
                                : fault);
}

void hardware_tab::show_service() {
    service_->setText(link_.watch().text());
}

void hardware_tab::show_led(int led) {
    const led_state state = link_.led(led);
    QTreeWidgetItem* item = leds_->topLevelItem(led);
    if (item) {
        item->setText(1, status_text(state.wanted));
        item->setText(2, status_text(state.told));
        item->setText(3, QLatin1String(state.is_lit ? "lit" : "dark"));
    }
}

} // namespace velarion
