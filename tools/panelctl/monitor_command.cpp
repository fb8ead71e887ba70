#include "command.h"

#include "command_line.h"
#include "device_message.h"
#include "device_names.h"
#include "display.h"
#include "dvc_pnl_dec_communication.h"
#include "message_delivery.h"

#include <QJsonObject>

#include <condition_variable>
#include <cstdio>
#include <mutex>
#include <vector>

namespace velarion {

namespace {

const QString COMMAND = QStringLiteral("monitor");
constexpr std::int32_t CONNECTED = 0; // not a number of the service: the connection itself
constexpr std::int32_t LOST = -1;

enum field_kind {
    FIELD_NUMBER,
    FIELD_LED,
    FIELD_LED_STATUS,
    FIELD_FLAG,
    FIELD_KEY_STATUS,
    FIELD_RESULT,
    FIELD_FAULT
};

struct event_field {
    const char* name;
    field_kind kind;
};

/** An event: its name, its line with %1, %2, ... for the fields, and the fields in their order. */
struct event_form {
    std::int32_t func_id;
    const char* name;
    const char* line;
    std::vector<event_field> fields;
};

const std::vector<event_form>& event_forms() {
    static const std::vector<event_field> led = {
        {"led", FIELD_LED}, {"status", FIELD_LED_STATUS}, {"lit", FIELD_FLAG}};
    static const std::vector<event_field> host = {{"connection", FIELD_NUMBER}, {"process", FIELD_NUMBER}};
    static const std::vector<event_form> forms = {
        {CONNECTED, "connected", "connected to the panel device service", {}},
        {LOST, "disconnected", "connection lost", {}},
        {EVENT_LED, "led", "led %1: %2 (%3)", led},
        {EVENT_LED_EDGE, "led_edge", "led %1: %2 (%3)", led},
        {EVENT_KEY,
         "key",
         "key %1: %2, %3 observers told",
         {{"key", FIELD_NUMBER}, {"status", FIELD_KEY_STATUS}, {"observers_told", FIELD_NUMBER}}},
        {EVENT_HOST_CAME, "host_came", "connection %1: made by process %2", host},
        {EVENT_HOST_GONE, "host_gone", "connection %1: of process %2 ended", host},
        {EVENT_OBSERVER,
         "observer",
         "connection %1: registered key observer %2",
         {{"connection", FIELD_NUMBER}, {"observer", FIELD_NUMBER}}},
        {EVENT_REFUSED,
         "refused",
         "connection %1: function %2 refused: %3",
         {{"connection", FIELD_NUMBER}, {"function", FIELD_NUMBER}, {"reason", FIELD_RESULT}}},
        {EVENT_FAULT,
         "fault",
         "connection %1: fault \"%2\" applied",
         {{"connection", FIELD_NUMBER}, {"fault", FIELD_FAULT}}},
    };
    return forms;
}

QString field_text(field_kind kind, std::int32_t value) {
    switch (kind) {
    case FIELD_LED:
        return QString::fromStdString(led_name(value));
    case FIELD_LED_STATUS:
        return QString::fromStdString(led_status_name(value));
    case FIELD_FLAG:
        return value != 0 ? QStringLiteral("lit") : QStringLiteral("dark");
    case FIELD_KEY_STATUS:
        return value == DVC_PNL_DEC_KEY_PRESSED ? QStringLiteral("pressed") : QStringLiteral("released");
    case FIELD_RESULT:
        return QString::fromStdString(result_text(value));
    case FIELD_FAULT:
        return QString::fromStdString(fault_name(value));
    default:
        return QString::number(value);
    }
}

QJsonValue field_as_json(field_kind kind, std::int32_t value) {
    if (kind == FIELD_NUMBER) {
        return value;
    }
    return kind == FIELD_FLAG ? QJsonValue(value != 0) : QJsonValue(field_text(kind, value));
}

std::int32_t value_at(const device_message& message, std::size_t place) {
    return place < message.records.size() ? message.records[place].value : 0;
}

QString event_line(const event_form& form, const device_message& message) {
    QString line = QLatin1String(form.line);
    for (std::size_t i = 0; i < form.fields.size(); ++i) {
        line = line.arg(field_text(form.fields[i].kind, value_at(message, i)));
    }
    return line;
}

QString event_as_json(const event_form& form, const device_message& message) {
    QJsonObject object = {{QStringLiteral("event"), QLatin1String(form.name)}};
    for (std::size_t i = 0; i < form.fields.size(); ++i) {
        object.insert(QLatin1String(form.fields[i].name),
                      field_as_json(form.fields[i].kind, value_at(message, i)));
    }
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

/** Prints what the service tells, on the thread that delivers it. */
class event_printer : public facade_template {
public:
    /** @param count  lines after which wait() returns; 0: never */
    event_printer(bool as_json, int count)
        : as_json_(as_json)
        , count_(count) {}

    void wait() {
        std::unique_lock<std::mutex> lock(mutex_);
        has_ended_.wait(lock, [this] { return count_ > 0 && printed_ >= count_; });
    }

    void dispatch(long, char* rcv_buf, unsigned int rcv_buflen, gen_ipc_msghdr) override {
        ipc_header header;
        device_message message;
        if (!read_ipc_header(rcv_buf, rcv_buflen, header)) {
            return;
        }
        if (header.kind == IPC_GREETING) {
            message.func_id = CONNECTED;
        } else if (header.kind == IPC_LOST) {
            message.func_id = LOST;
        } else if (decode_message(rcv_buf, rcv_buflen, message) != DEVICE_OK) {
            return;
        }
        print(message);
    }

private:
    void print(const device_message& message) {
        const std::lock_guard<std::mutex> lock(mutex_);
        for (const event_form& form : event_forms()) {
            if (form.func_id != message.func_id || (count_ > 0 && printed_ >= count_)) {
                continue;
            }
            print_line(as_json_ ? event_as_json(form, message) : event_line(form, message));
            std::fflush(stdout);
            ++printed_;
        }
        has_ended_.notify_all();
    }

    const bool as_json_;
    const int count_;
    std::mutex mutex_;
    std::condition_variable has_ended_;
    int printed_ = 0;
};

} // namespace

int run_monitor_command(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Watches the panel device service: a line per event, "
                                                    "until interrupted. Waits for a service that does\n"
                                                    "not run, and again when it ended."));
    parser.addOption(
        {QStringLiteral("edges"), QStringLiteral("Also tells each time a blinking LED turns on or off.")});
    parser.addOption({QStringLiteral("count"), QStringLiteral("Ends after so many lines."),
                      QStringLiteral("LINES"), QStringLiteral("0")});
    int exit_code = EXIT_FOUND;
    if (!read_arguments(parser, COMMAND, arguments, exit_code)) {
        return exit_code;
    }
    int count = 0;
    bool is_number = false;
    count = parser.value(QStringLiteral("count")).toInt(&is_number);
    if (!is_number || count < 0 || !parser.positionalArguments().isEmpty()) {
        return usage_fault(COMMAND, QStringLiteral("--count takes a number; no other words are expected"));
    }
    event_printer printer(parser.isSet(QLatin1String(JSON_OPTION)), count);
    const message_delivery delivery(printer, DVC_PNL_DEC_SERVICE_NAME,
                                    parser.isSet(QStringLiteral("edges")) ? ATTACH_EVENTS_AND_EDGES
                                                                          : ATTACH_EVENTS);
    printer.wait();
    return EXIT_FOUND;
}

} // namespace velarion
