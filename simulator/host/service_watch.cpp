#include "service_watch.h"

#include "device_names.h"

namespace velarion {

namespace {

constexpr int LATE = 200;       // ms after which an answer is late
constexpr int BACK_NEWS = 5000; // ms for which it is told that the service is back

QString seconds_of(qint64 ms) {
    return ms < 10000 ? QString::number(static_cast<double>(ms) / 1000, 'f', 1) + QStringLiteral(" s")
                      : QString::number(ms / 1000) + QStringLiteral(" s");
}

int value_at(const device_message& message, std::size_t place) {
    return place < message.records.size() ? message.records[place].value : 0;
}

} // namespace

service_watch::service_watch() {
    since_.start();
    back_.setSingleShot(true);
    back_.setInterval(BACK_NEWS);
    connect(&back_, &QTimer::timeout, this, &service_watch::changed);
}

/** What was seen of one service says nothing of the next. */
void service_watch::take_look(service_look look) {
    look_ = look;
    if (look == service_look::ABSENT || look == service_look::STARTING) {
        fault_ = FAULT_NONE;
        status_ms_ = 0;
        last_result_ = 0;
        last_ms_ = 0;
    }
    process_ = look == service_look::ABSENT ? 0 : process_;
    update();
}

void service_watch::take_status(const device_message& reply, int ms) {
    const int fault = value_at(reply, STATUS_FAULT);
    const int process = value_at(reply, STATUS_PROCESS);
    if (fault != fault_ || process != process_) { // what it did before, it did under another fault
        last_result_ = 0;
        last_ms_ = 0;
    }
    process_ = process;
    fault_ = fault;
    fault_value_ = value_at(reply, STATUS_FAULT_VALUE);
    status_ms_ = ms;
    update();
}

void service_watch::take_result(int result, int ms) {
    last_result_ = result;
    last_ms_ = ms;
    update();
}

service_condition service_watch::find_condition() const {
    if (look_ == service_look::ABSENT) {
        return service_condition::ABSENT;
    }
    if (look_ == service_look::STARTING) {
        return service_condition::STARTING;
    }
    if (look_ == service_look::SILENT || fault_ == FAULT_DROP || last_result_ < 0) {
        return service_condition::SILENT;
    }
    if (fault_ == FAULT_FAIL || last_result_ > 0) {
        return service_condition::REFUSING;
    }
    const bool is_slow = fault_ == FAULT_DELAY || status_ms_ > LATE || last_ms_ > LATE;
    return is_slow ? service_condition::SLOW : service_condition::RUNNING;
}

QString service_watch::reason() const {
    switch (condition_) {
    case service_condition::ABSENT:
        return QStringLiteral("The device service is not running: keys and LEDs do nothing");
    case service_condition::STARTING:
        return QStringLiteral("The device service is starting");
    case service_condition::SLOW:
        return fault_ == FAULT_DELAY
                   ? QStringLiteral("The device service answers late, by %1 ms").arg(fault_value_)
                   : QStringLiteral("The device service answers late");
    case service_condition::SILENT:
        return look_ == service_look::SILENT
                   ? QStringLiteral("The device service is silent: it runs but does not answer") +
                         process_text()
                   : QStringLiteral("The device service leaves requests without an answer");
    case service_condition::REFUSING:
        return QStringLiteral("The device service refuses requests: %1")
            .arg(QString::fromStdString(result_text(fault_ == FAULT_FAIL ? fault_value_ : last_result_)));
    default:
        return QStringLiteral("The device service is running");
    }
}

QString service_watch::process_text() const {
    return process_ == 0 ? QString() : QStringLiteral(" (process %1)").arg(process_);
}

QString service_watch::text() const {
    if (condition_ == service_condition::RUNNING) {
        return is_just_back() ? lost_for_ : reason() + process_text();
    }
    return QStringLiteral("%1 (for %2)").arg(reason(), seconds_of(since_.elapsed()));
}

void service_watch::update() {
    const service_condition next = find_condition();
    if (next == condition_) {
        return;
    }
    const bool is_back = next == service_condition::RUNNING && was_good_;
    const bool was_running = condition_ == service_condition::RUNNING;
    condition_ = next;
    if (is_back) {
        lost_for_ =
            QStringLiteral("The device service is back after %1: LEDs are set and keys registered again")
                .arg(seconds_of(since_.elapsed()));
        back_.start();
    } else {
        back_.stop();
    }
    was_good_ = was_good_ || next == service_condition::RUNNING;
    if (was_running || next == service_condition::RUNNING) {
        since_.start(); // one trouble may become another without an end in between
    }
    Q_EMIT changed();
}

} // namespace velarion
