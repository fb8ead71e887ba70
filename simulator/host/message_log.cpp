#include "message_log.h"

#include "device_names.h"
#include "dvc_pnl_dec_communication.h"
#include "message_socket.h"

#include <QStringList>

#include <vector>

namespace velarion {

namespace {

enum class value_kind { NUMBER, LED, LED_STATUS, KEY_STATUS, OBSERVER };

struct parameter_form {
    const char* name;
    value_kind kind = value_kind::NUMBER;
};

struct function_form {
    std::int32_t func_id;
    const char* name;
    std::vector<parameter_form> parameters;
};

const std::vector<function_form>& function_forms() {
    static const std::vector<function_form> forms = {
        {DVC_PNL_DEC_FUNCTION_SET_LED_STATUS,
         "set_led_status",
         {{"led", value_kind::LED}, {"status", value_kind::LED_STATUS}}},
        {DVC_PNL_DEC_FUNCTION_SET_ALL_LED_ON, "set_all_led_on", {}},
        {DVC_PNL_DEC_FUNCTION_SET_ALL_LED_OFF, "set_all_led_off", {}},
        {DVC_PNL_DEC_FUNCTION_SET_LED_AIRPRINT_TIMER_PROC,
         "set_led_airprint_timer_proc",
         {{"timer"}, {"lit ms"}, {"dark ms"}, {"cycles"}, {"end status", value_kind::LED_STATUS}}},
        {DVC_PNL_DEC_FUNCTION_ADD_KEY_OBSERVER, "add_key_observer", {{"observer", value_kind::OBSERVER}}},
        {DVC_PNL_DEC_FUNCTION_NOTIFY_KEY_EVENT,
         "notify_key_event",
         {{"key"}, {"status", value_kind::KEY_STATUS}}},
        {CONTROL_LIST_LEDS, "list_leds", {}},
        {CONTROL_KEY_EVENT, "key_event", {{"key"}, {"status", value_kind::KEY_STATUS}}},
        {CONTROL_SET_FAULT, "set_fault", {{"kind"}, {"value"}, {"requests"}}},
        {CONTROL_STATUS, "status", {}}};
    return forms;
}

QString value_text(value_kind kind, std::int32_t value) {
    switch (kind) {
    case value_kind::LED:
        return QString::fromStdString(led_name(value));
    case value_kind::LED_STATUS:
        return QString::fromStdString(led_status_name(value));
    case value_kind::KEY_STATUS:
        return value == DVC_PNL_DEC_KEY_PRESSED    ? QStringLiteral("pressed")
               : value == DVC_PNL_DEC_KEY_RELEASED ? QStringLiteral("released")
                                                   : QString::number(value);
    case value_kind::OBSERVER:
        return QStringLiteral("0x%1").arg(static_cast<std::uint32_t>(value), 8, 16, QLatin1Char('0'));
    default:
        return QString::number(value);
    }
}

QString outcome_text(platform_code code) {
    switch (code) {
    case PLATFORM_NOT_READY:
        return QStringLiteral("not sent: the service is not ready");
    case PLATFORM_NO_ANSWER:
        return QStringLiteral("no answer");
    case PLATFORM_CONNECTION_LOST:
        return QStringLiteral("connection lost");
    case PLATFORM_BAD_MESSAGE:
    case PLATFORM_TOO_LARGE:
        return QStringLiteral("an answer that is not understood");
    default:
        return QStringLiteral("failed with code %1").arg(code);
    }
}

void describe_result(const watched_message& request, message_entry& entry) {
    device_message reply;
    entry.is_good = false;
    if (request.code != PLATFORM_OK) {
        entry.result = outcome_text(request.code);
    } else if (decode_message(request.reply, request.reply_length, reply) != DEVICE_OK) {
        entry.result = outcome_text(PLATFORM_BAD_MESSAGE);
    } else {
        entry.is_good = reply.result == DEVICE_OK;
        entry.result = (entry.is_good ? QString() : QStringLiteral("refused with %1: ").arg(reply.result)) +
                       QString::fromStdString(result_text(reply.result));
    }
}

message_entry describe_bytes(const watched_message& message) {
    device_message decoded;
    message_entry entry;
    if (decode_message(message.bytes, message.length, decoded) == DEVICE_OK) {
        entry = describe_message(decoded);
    } else {
        entry.function = QStringLiteral("%1 bytes that are no message of the service").arg(message.length);
        entry.is_good = false;
    }
    entry.ms = static_cast<double>(message.microseconds) / 1000;
    return entry;
}

} // namespace

message_entry describe_message(const device_message& message) {
    message_entry entry;
    const function_form* form = nullptr;
    for (const function_form& known : function_forms()) {
        form = known.func_id == message.func_id ? &known : form;
    }
    entry.function = form ? QStringLiteral("%1 (%2)").arg(QLatin1String(form->name)).arg(form->func_id)
                          : QStringLiteral("function %1").arg(message.func_id);
    QStringList texts;
    for (std::size_t i = 0; i < message.records.size(); ++i) {
        const device_record& record = message.records[i];
        texts.append(form && i < form->parameters.size()
                         ? QLatin1String(form->parameters[i].name) + QLatin1Char(' ') +
                               value_text(form->parameters[i].kind, record.value)
                         : QStringLiteral("%1: %2").arg(record.id).arg(record.value));
    }
    entry.parameters = texts.join(QStringLiteral(", "));
    return entry;
}

message_log::message_log() {
    set_message_watch(this);
}

message_log::~message_log() {
    set_message_watch(nullptr);
}

void message_log::take_request(const watched_message& request) {
    message_entry entry = describe_bytes(request);
    describe_result(request, entry);
    queue_.post([this, entry, begun = request.begun] { add(entry, begun); });
}

/** Greetings and lost connections are the message layer's own. */
void message_log::take_notification(const watched_message& notification) {
    ipc_header header;
    if (read_ipc_header(notification.bytes, notification.length, header) && header.kind == IPC_NOTIFICATION) {
        message_entry entry = describe_bytes(notification);
        entry.is_notification = true;
        queue_.post([this, entry, begun = notification.begun] { add(entry, begun); });
    }
}

void message_log::add(message_entry entry, std::int64_t begun) {
    entry.time = QTime::currentTime().addMSecs(static_cast<int>(begun - monotonic_milliseconds()));
    if (entries_.size() == MOST_ENTRIES) {
        entries_.pop_front();
    }
    entries_.push_back(std::move(entry));
    Q_EMIT added(entries_.back());
}

trace_log::trace_log(bool prints)
    : prints_(prints) {
    set_trace_watch(this);
}

trace_log::~trace_log() {
    set_trace_watch(nullptr);
}

bool trace_log::take_trace(const std::string& record) {
    queue_.post([this, text = QString::fromStdString(record)] {
        if (records_.size() == MOST_RECORDS) {
            records_.pop_front();
        }
        records_.push_back(text);
        Q_EMIT added(text);
    });
    return !prints_;
}

} // namespace velarion
