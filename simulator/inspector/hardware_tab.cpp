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
    layout->addWidget(make_service());
    layout->addWidget(make_keys());
    layout->addWidget(leds_, 1);
    for (int led = 0; led < LED_COUNT; ++led) {
        add_row(leds_, {QString::fromStdString(led_name(led))});
        show_led(led);
    }
    connect(&link_, &panel_hardware::led_changed, this, &hardware_tab::show_led);
    connect(&link_.watch(), &service_watch::changed, this, &hardware_tab::show_service);
    show_service();
}

QWidget* hardware_tab::make_service() {
    auto* group = new QGroupBox(QStringLiteral("Device service"));
    auto* layout = new QGridLayout(group);
    service_ = new QLabel;
    service_->setWordWrap(true);
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
    const auto add_value = [this, layout, &place](const char* label, const char* command, const char* unit,
                                                  int most, int value) {
        auto* field = new QSpinBox;
        field->setRange(command == QLatin1String("delay") ? 0 : 1, most);
        field->setValue(value);
        field->setSuffix(QLatin1String(unit));
        field->setAccessibleName(QLatin1String(label));
        auto* button = new_button(QLatin1String(label));
        const QString word = QLatin1String(command);
        connect(button, &QPushButton::clicked, this, [this, word, field] {
            run({word, QString::number(field->value())});
        });
        const int row = place / KEY_COLUMNS + 1;
        const bool is_first = word == QLatin1String("delay");
        layout->addWidget(button, row, is_first ? 0 : 3);
        layout->addWidget(field, row, is_first ? 1 : 4, 1, is_first ? 2 : 1);
    };
    add_value("Delay", "delay", " ms", MOST_DELAY, 2000);
    add_value("Refuse", "refuse", "", 99, 1);
    return group;
}

QWidget* hardware_tab::make_keys() {
    auto* group = new QGroupBox(QStringLiteral("Hard keys"));
    auto* layout = new QGridLayout(group);
    layout->setSpacing(4);
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
