#include "panel_service.h"

#include "device_names.h"
#include "dvc_pnl_dec_communication.h"
#include "dvc_pnl_dec_types.h"
#include "service_log.h"

#include <algorithm>
#include <csignal>
#include <iterator>
#include <unistd.h>
#include <utility>

namespace panel_device {

namespace {

using panel_platform::ipc_header;

const std::ptrdiff_t MOST_DELAYED = 1024; // replies that wait for one connection

bool is_control(std::int32_t func_id) {
    return func_id >= CONTROL_LIST_LEDS && func_id <= CONTROL_STATUS;
}

bool has_parameters(const device_message& request, const std::vector<std::int32_t>& ids) {
    return std::equal(ids.begin(), ids.end(), request.records.begin(), request.records.end(),
                      [](std::int32_t id, const device_record& record) { return id == record.id; });
}

observer_owner owner_of(std::uint64_t host, std::uint32_t connection) {
    return {host, host == 0 ? connection : 0};
}

[[noreturn]] void crash() {
    write_log(SERVICE_LOG_WARNING, "crashing, as ordered");
    for (;;) {
        std::raise(SIGKILL);
    }
}

} // namespace

panel_service::panel_service(message_sender sender, std::int64_t now)
    : sender_(std::move(sender))
    , monitor_(sender_)
    , started_(now) {}

const std::vector<panel_service::service_function>& panel_service::functions() {
    using namespace velarion;
    static const std::vector<service_function> table = {
        {DVC_PNL_DEC_FUNCTION_SET_LED_STATUS,
         {DVC_PNL_DEC_PARAMETER_ID, DVC_PNL_DEC_PARAMETER_STATUS},
         &panel_service::set_led},
        {DVC_PNL_DEC_FUNCTION_SET_ALL_LED_ON, {}, &panel_service::set_all_leds_on},
        {DVC_PNL_DEC_FUNCTION_SET_ALL_LED_OFF, {}, &panel_service::set_all_leds_off},
        {DVC_PNL_DEC_FUNCTION_SET_LED_AIRPRINT_TIMER_PROC,
         {DVC_PNL_DEC_PARAMETER_TIMER, DVC_PNL_DEC_PARAMETER_TIMER_VALUE_1,
          DVC_PNL_DEC_PARAMETER_TIMER_VALUE_2, DVC_PNL_DEC_PARAMETER_TIMER_VALUE_3,
          DVC_PNL_DEC_PARAMETER_TIMER_VALUE_4},
         &panel_service::run_led_timer},
        {DVC_PNL_DEC_FUNCTION_ADD_KEY_OBSERVER,
         {DVC_PNL_DEC_PARAMETER_OBSERVER},
         &panel_service::add_observer},
        {CONTROL_LIST_LEDS, {}, &panel_service::list_leds},
        {CONTROL_KEY_EVENT, {0, 1}, &panel_service::send_key_event},
        {CONTROL_SET_FAULT, {0, 1, 2}, &panel_service::set_fault},
        {CONTROL_STATUS, {}, &panel_service::report_status},
    };
    return table;
}

void panel_service::connected(std::uint32_t connection, pid_t process) {
    write_log(SERVICE_LOG_DEBUG, "connection %u: made by process %ld", connection,
              static_cast<long>(process));
    connections_[connection] = {process, 0, false};
    ipc_header header;
    header.kind = panel_platform::IPC_GREETING;
    std::vector<char> greeting(panel_platform::IPC_HEADER_LENGTH);
    header.length = static_cast<std::uint32_t>(greeting.size());
    panel_platform::write_ipc_header(header, greeting.data());
    sender_(connection, std::move(greeting));
    monitor_.tell(EVENT_HOST_CAME, {static_cast<std::int32_t>(connection), process});
}

void panel_service::disconnected(std::uint32_t connection) {
    const auto found = connections_.find(connection);
    if (found == connections_.end()) {
        return;
    }
    const pid_t process = found->second.process;
    const std::uint64_t host = found->second.host;
    write_log(SERVICE_LOG_DEBUG, "connection %u: gone", connection);
    connections_.erase(found);
    if (!has_connection(host)) {
        observers_.forget(owner_of(host, connection));
    }
    for (auto delayed = delayed_.begin(); delayed != delayed_.end();) {
        delayed = delayed->second.connection == connection ? delayed_.erase(delayed) : std::next(delayed);
    }
    monitor_.forget(connection);
    monitor_.tell(EVENT_HOST_GONE, {static_cast<std::int32_t>(connection), process});
}

/** @return whether a host, which has a number, has a connection still */
bool panel_service::has_connection(std::uint64_t host) const {
    return host != 0 && std::any_of(connections_.begin(), connections_.end(),
                                    [&](const auto& entry) { return entry.second.host == host; });
}

bool panel_service::may_send_requests(std::uint32_t number) const {
    return std::count_if(delayed_.begin(), delayed_.end(),
                         [&](const auto& entry) { return entry.second.connection == number; }) < MOST_DELAYED;
}

bool panel_service::receive(std::uint32_t connection, const ipc_header& header, const char* bytes,
                            std::int64_t now) {
    connection_state& sender = connections_.at(connection);
    if (sender.host == 0) {
        sender.host = header.host;
    }
    if (sender.host != header.host) {
        return false;
    }
    if (header.kind == panel_platform::IPC_ATTACH) {
        return attach(connection, header);
    }
    if (!may_send_requests(connection)) {
        return false;
    }
    advance(now);
    if (header.kind == panel_platform::IPC_PROBE) {
        return answer_probe(connection, header, bytes, now);
    }
    if (header.kind != panel_platform::IPC_REQUEST) {
        return false;
    }
    answer(connection, header, bytes, now);
    return true;
}

bool panel_service::attach(std::uint32_t number, const ipc_header& header) {
    if (header.host == 0 || header.length != panel_platform::IPC_HEADER_LENGTH ||
        header.destination > ATTACH_EVENTS_AND_EDGES) {
        return false;
    }
    connections_.at(number).takes_notifications = true;
    if (header.destination != ATTACH_OWN) {
        monitor_.add(number, header.destination);
    }
    return true;
}

void panel_service::answer(std::uint32_t number, const ipc_header& header, const char* bytes,
                           std::int64_t now) {
    const bool is_faulty = !is_control(header.func_id);
    const fault_kind fault = is_faulty ? take_fault(number) : FAULT_NONE;
    device_message reply;
    reply.result = fault == FAULT_FAIL ? faults_.value() : carry_out(number, header, bytes, now, reply);
    reply.func_id = header.func_id;
    request_count_ += is_faulty ? 1U : 0U;
    if (reply.result != DEVICE_OK) {
        refused_count_ += is_faulty ? 1U : 0U;
        write_log(SERVICE_LOG_INFO, "connection %u: function %d: %s", number, header.func_id,
                  result_text(reply.result).c_str());
        monitor_.tell(EVENT_REFUSED, {static_cast<std::int32_t>(number), header.func_id, reply.result});
    }
    ipc_header reply_header;
    reply_header.kind = panel_platform::IPC_REPLY;
    reply_header.sequence = header.sequence;
    send_reply(number, encode_message(reply, reply_header), fault, now);
}

/** A service that leaves requests without an answer does so with probes; other faults are none of theirs. */
bool panel_service::answer_probe(std::uint32_t number, const ipc_header& header, const char* bytes,
                                 std::int64_t now) {
    if (header.length != panel_platform::IPC_HEADER_LENGTH) {
        return false;
    }
    const bool is_faulty = faults_.kind() == FAULT_DELAY || faults_.kind() == FAULT_DROP;
    send_reply(number, {bytes, bytes + header.length}, is_faulty ? faults_.take() : FAULT_NONE, now);
    return true;
}

void panel_service::send_reply(std::uint32_t number, std::vector<char> message, fault_kind fault,
                               std::int64_t now) {
    if (fault == FAULT_DELAY) {
        delayed_.insert({now + faults_.value(), {number, std::move(message)}});
    } else if (fault != FAULT_DROP) {
        sender_(number, std::move(message));
    }
}

fault_kind panel_service::take_fault(std::uint32_t connection) {
    const fault_kind fault = faults_.take();
    if (fault != FAULT_NONE) {
        write_log(SERVICE_LOG_INFO, "connection %u: fault %s, as ordered", connection,
                  fault_name(fault).c_str());
        monitor_.tell(EVENT_FAULT, {static_cast<std::int32_t>(connection), fault});
    }
    if (fault == FAULT_CRASH) {
        crash();
    }
    return fault;
}

device_result panel_service::carry_out(std::uint32_t number, const ipc_header& header, const char* bytes,
                                       std::int64_t now, device_message& reply) {
    device_message request;
    const device_result result = decode_message(bytes, header.length, request);
    if (result != DEVICE_OK) {
        return result;
    }
    const auto function =
        std::find_if(functions().begin(), functions().end(),
                     [&](const service_function& known) { return known.func_id == request.func_id; });
    if (function == functions().end() || request.func_id != header.func_id) {
        return DEVICE_UNKNOWN_FUNCTION;
    }
    if (request.records.size() != function->parameter_ids.size()) {
        return DEVICE_BAD_COUNT;
    }
    if (!has_parameters(request, function->parameter_ids)) {
        return DEVICE_BAD_PARAMETER;
    }
    function_call call = {number, header.host, {}, now};
    for (const device_record& record : request.records) {
        call.values.push_back(record.value);
    }
    return (this->*function->run)(call, reply);
}

void panel_service::advance(std::int64_t now) {
    std::vector<led_change> changes;
    leds_.advance(now, changes);
    monitor_.tell(changes);
    while (!delayed_.empty() && delayed_.begin()->first <= now) {
        delayed_reply due = std::move(delayed_.begin()->second);
        delayed_.erase(delayed_.begin());
        sender_(due.connection, std::move(due.message));
    }
}

std::int64_t panel_service::next_deadline() const {
    const std::int64_t led = leds_.next_change();
    if (delayed_.empty()) {
        return led;
    }
    const std::int64_t reply = delayed_.begin()->first;
    return led < 0 ? reply : std::min(led, reply);
}

device_result panel_service::set_led(const function_call& call, device_message&) {
    std::vector<led_change> changes;
    const device_result result = leds_.set(call.values[0], call.values[1], call.now, changes);
    monitor_.tell(changes);
    return result;
}

device_result panel_service::set_all_leds_on(const function_call& call, device_message&) {
    std::vector<led_change> changes;
    leds_.set_all(velarion::DVC_PNL_DEC_LED_STATUS_ON, call.now, changes);
    monitor_.tell(changes);
    return DEVICE_OK;
}

device_result panel_service::set_all_leds_off(const function_call& call, device_message&) {
    std::vector<led_change> changes;
    leds_.set_all(velarion::DVC_PNL_DEC_LED_STATUS_OFF, call.now, changes);
    monitor_.tell(changes);
    return DEVICE_OK;
}

device_result panel_service::run_led_timer(const function_call& call, device_message&) {
    const led_timer timer = {call.host,      call.values[0], call.values[1],
                             call.values[2], call.values[3], call.values[4]};
    std::vector<led_change> changes;
    const device_result result = leds_.run_timer(timer, call.now, changes);
    monitor_.tell(changes);
    return result;
}

device_result panel_service::add_observer(const function_call& call, device_message&) {
    const device_result result =
        observers_.add({owner_of(call.host, call.connection), static_cast<std::uint32_t>(call.values[0])});
    if (result == DEVICE_OK) {
        monitor_.tell(EVENT_OBSERVER, {static_cast<std::int32_t>(call.connection), call.values[0]});
    }
    return result;
}

device_result panel_service::list_leds(const function_call&, device_message& reply) {
    std::vector<std::int32_t> values;
    for (std::int32_t led = 0; led < LED_COUNT; ++led) {
        values.insert(values.end(), {led, leds_.status(led), leds_.is_lit(led) ? 1 : 0});
    }
    reply = make_message(CONTROL_LIST_LEDS, values);
    return DEVICE_OK;
}

device_result panel_service::send_key_event(const function_call& call, device_message& reply) {
    const std::int32_t key = call.values[0];
    const std::int32_t status = call.values[1];
    if (key < 0 || key >= KEY_COUNT) {
        return DEVICE_UNKNOWN_KEY;
    }
    if (status != velarion::DVC_PNL_DEC_KEY_RELEASED && status != velarion::DVC_PNL_DEC_KEY_PRESSED) {
        return DEVICE_UNKNOWN_STATUS;
    }
    const std::int32_t told = notify_observers(key, status);
    reply = make_message(CONTROL_KEY_EVENT, {told});
    monitor_.tell(EVENT_KEY, {key, status, told});
    return DEVICE_OK;
}

/** @return whether the observer's host takes notifications */
bool panel_service::notify(const key_observer& observer, const device_message& message) {
    ipc_header header;
    header.kind = panel_platform::IPC_NOTIFICATION;
    header.destination = observer.number;
    bool is_told = false;
    for (const auto& [number, connection] : connections_) {
        if (connection.takes_notifications && connection.host == observer.owner.host) {
            sender_(number, encode_message(message, header));
            is_told = true;
        }
    }
    return is_told;
}

/** @return how many observers were told */
std::int32_t panel_service::notify_observers(std::int32_t key, std::int32_t status) {
    const device_message message = {
        velarion::DVC_PNL_DEC_FUNCTION_NOTIFY_KEY_EVENT,
        DEVICE_OK,
        {{velarion::DVC_PNL_DEC_PARAMETER_ID, key}, {velarion::DVC_PNL_DEC_PARAMETER_STATUS, status}}};
    std::int32_t told = 0;
    for (const key_observer& observer : observers_.observers()) {
        told += notify(observer, message) ? 1 : 0;
    }
    return told;
}

device_result panel_service::set_fault(const function_call& call, device_message&) {
    const device_result result = faults_.set(call.values[0], call.values[1], call.values[2]);
    if (result == DEVICE_OK && faults_.kind() == FAULT_CRASH_NOW) {
        crash();
    }
    return result;
}

device_result panel_service::report_status(const function_call& call, device_message& reply) {
    std::vector<std::int32_t> values(STATUS_FIELD_COUNT);
    values[STATUS_PROCESS] = ::getpid();
    values[STATUS_UPTIME] = static_cast<std::int32_t>((call.now - started_) / 1000);
    values[STATUS_CONNECTIONS] = static_cast<std::int32_t>(connections_.size());
    values[STATUS_OBSERVERS] = static_cast<std::int32_t>(observers_.observers().size());
    values[STATUS_REQUESTS] = static_cast<std::int32_t>(request_count_);
    values[STATUS_REFUSED] = static_cast<std::int32_t>(refused_count_);
    values[STATUS_FAULT] = faults_.kind();
    values[STATUS_FAULT_VALUE] = faults_.value();
    values[STATUS_FAULT_REQUESTS] = faults_.requests();
    reply = make_message(CONTROL_STATUS, values);
    return DEVICE_OK;
}

} // namespace panel_device
