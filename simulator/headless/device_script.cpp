#include "device_script.h"

#include "device_link.h"
#include "device_names.h"
#include "hard_key.h"
#include "script_runner.h"
#include "service_keeper.h"

#include <QTimer>

namespace velarion {

namespace {

using words = QStringList;

constexpr int ATTEMPTS = 50;
constexpr int RETRY_PAUSE = 20; // ms

/** What the words of "wait service ..." ask for. */
const QStringList& condition_names() {
    static const QStringList names = {QStringLiteral("absent"),  QStringLiteral("starting"),
                                      QStringLiteral("running"), QStringLiteral("slow"),
                                      QStringLiteral("silent"),  QStringLiteral("refusing")};
    return names;
}

/** The panel may not have come back to a service that has just been started: it is tried again for a while.
 */
void move_until_told(device_link& link, int key, bool is_pressed, int attempts) {
    link.move_key(key, is_pressed, [&link, key, is_pressed, attempts](const device_message& reply) {
        const bool is_told = !reply.records.empty() && reply.records.front().value > 0;
        if (!is_told && attempts > 0) {
            QTimer::singleShot(RETRY_PAUSE, &link, [&link, key, is_pressed, attempts] {
                move_until_told(link, key, is_pressed, attempts - 1);
            });
        }
    });
}

script_outcome move_key(device_link& link, const QString& name, bool is_pressed) {
    int key = 0;
    if (!find_hard_key(name, key)) {
        return script_outcome::wrong(QStringLiteral("no hard key \"%1\"").arg(name));
    }
    link.start();
    move_until_told(link, key, is_pressed, ATTEMPTS);
    return {};
}

script_outcome check_service(device_link& link, const QString& name) {
    link.start();
    const int wanted = condition_names().indexOf(name);
    if (wanted < 0) {
        return script_outcome::wrong(QStringLiteral("usage: service ") +
                                     condition_names().join(QStringLiteral(" | ")));
    }
    const service_watch& watch = link.watch();
    if (watch.condition() == service_condition::RUNNING && !link.has_keys()) {
        return script_outcome::unmet(QStringLiteral("The device service knows no observer of keys"));
    }
    return script_outcome::of(static_cast<int>(watch.condition()) == wanted, watch.text());
}

script_outcome check_led(device_link& link, const QString& name, const QString& status) {
    link.start();
    std::int32_t led = 0;
    std::int32_t wanted = 0;
    if (!find_led(name.toStdString(), led) || !find_led_status(status.toStdString(), wanted)) {
        return script_outcome::wrong(
            QStringLiteral("LEDs are %1; an LED is %2")
                .arg(QString::fromStdString(known_leds()), QString::fromStdString(known_led_statuses())));
    }
    const int told = link.led(led).told;
    return script_outcome::of(
        told == wanted, told == led_state::UNKNOWN
                            ? QStringLiteral("the device service tells nothing of the LED")
                            : QStringLiteral("the LED is ") + QString::fromStdString(led_status_name(told)));
}

} // namespace

void add_device_words(script_runner& runner, device_link& link, service_keeper& service) {
    runner.add_command(QStringLiteral("service"), QStringLiteral("WORD [NUMBER]"), 1, 2,
                       [&](const words& word) { return script_outcome::of_fault(service.run(word)); });
    runner.add_command(QStringLiteral("press"), QStringLiteral("NAME | NUMBER"), 1, 1,
                       [&](const words& word) { return move_key(link, word[0], true); });
    runner.add_command(QStringLiteral("release"), QStringLiteral("NAME | NUMBER"), 1, 1,
                       [&](const words& word) { return move_key(link, word[0], false); });
    runner.add_condition(QStringLiteral("service"), QStringLiteral("CONDITION"), 1, 1,
                         [&](const words& word) { return check_service(link, word[0]); });
    runner.add_condition(QStringLiteral("led"), QStringLiteral("NAME STATUS"), 2, 2,
                         [&](const words& word) { return check_led(link, word[0], word[1]); });
}

} // namespace velarion
