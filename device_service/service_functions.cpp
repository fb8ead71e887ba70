#include "service_functions.h"

#include "dvc_pnl_dec_communication.h"
#include "dvc_pnl_dec_types.h"

#include <algorithm>
#include <unistd.h>
#include <vector>

namespace velarion {

namespace {

/** A request whose number and ids of parameters were found right. */
struct function_call {
    std::uint32_t connection;
    std::uint64_t host;
    std::vector<std::int32_t> values;
    std::int64_t now;
};

/** A function, the ids of its parameters in their order, and what carries it out. */
struct service_function {
    std::int32_t func_id;
    std::vector<std::int32_t> parameter_ids;
    device_result (*run)(service_state& service, const function_call& call, device_message& reply);
};

device_result set_led(service_state& service, const function_call& call, device_message&) {
    std::vector<led_change> changes;
    const device_result result = service.leds.set(call.values[0], call.values[1], call.now, changes);
    service.monitor.tell(changes);
    return result;
}

device_result set_all_leds_on(service_state& service, const function_call& call, device_message&) {
    std::vector<led_change> changes;
    service.leds.set_all(DVC_PNL_DEC_LED_STATUS_ON, call.now, changes);
    service.monitor.tell(changes);
    return DEVICE_OK;
}

device_result set_all_leds_off(service_state& service, const function_call& call, device_message&) {
    std::vector<led_change> changes;
    service.leds.set_all(DVC_PNL_DEC_LED_STATUS_OFF, call.now, changes);
    service.monitor.tell(changes);
    return DEVICE_OK;
}

device_result run_led_timer(service_state& service, const function_call& call, device_message&) {
    const led_timer timer = {call.host,      call.values[0], call.values[1],
                             call.values[2], call.values[3], call.values[4]};
    std::vector<led_change> changes;
    const device_result result = service.leds.run_timer(timer, call.now, changes);
    service.monitor.tell(changes);
    return result;
}

device_result add_observer(service_state& service, const function_call& call, device_message&) {
    const device_result result = service.observers.add(
        {owner_of(call.host, call.connection), static_cast<std::uint32_t>(call.values[0])});
    if (result == DEVICE_OK) {
        service.monitor.tell(EVENT_OBSERVER, {static_cast<std::int32_t>(call.connection), call.values[0]});
    }
    return result;
}

device_result list_leds(service_state& service, const function_call&, device_message& reply) {
    std::vector<std::int32_t> values;
    for (std::int32_t led = 0; led < LED_COUNT; ++led) {
        values.insert(values.end(), {led, service.leds.status(led), service.leds.is_lit(led) ? 1 : 0});
    }
    reply = make_message(CONTROL_LIST_LEDS, values);
    return DEVICE_OK;
}

/** @return whether the observer's host takes notifications */
bool notify(service_state& service, const key_observer& observer, const device_message& message) {
    ipc_header header;
    header.kind = IPC_NOTIFICATION;
    header.destination = observer.number;
    bool is_told = false;
    for (const auto& [number, connection] : service.connections) {
        if (connection.takes_notifications && connection.host == observer.owner.host) {
            service.sender(number, encode_message(message, header));
            is_told = true;
        }
    }
    return is_told;
}

/** @return how many observers were told */
std::int32_t notify_observers(service_state& service, std::int32_t key, std::int32_t status) {
    const device_message message = {
        DVC_PNL_DEC_FUNCTION_NOTIFY_KEY_EVENT,
        DEVICE_OK,
        {{DVC_PNL_DEC_PARAMETER_ID, key}, {DVC_PNL_DEC_PARAMETER_STATUS, status}}};
    std::int32_t told = 0;
    for (const key_observer& observer : service.observers.observers()) {
        told += notify(service, observer, message) ? 1 : 0;
    }
    return told;
}

device_result send_key_event(service_state& service, const function_call& call, device_message& reply) {
    const std::int32_t key = call.values[0];
    const std::int32_t status = call.values[1];
    if (key < 0 || key >= KEY_COUNT) {
        return DEVICE_UNKNOWN_KEY;
    }
    if (status != DVC_PNL_DEC_KEY_RELEASED && status != DVC_PNL_DEC_KEY_PRESSED) {
        return DEVICE_UNKNOWN_STATUS;
    }
    const std::int32_t told = notify_observers(service, key, status);
    reply = make_message(CONTROL_KEY_EVENT, {told});
    service.monitor.tell(EVENT_KEY, {key, status, told});
    return DEVICE_OK;
}

device_result set_fault(service_state& service, const function_call& call, device_message&) {
    const device_result result = service.faults.set(call.values[0], call.values[1], call.values[2]);
    if (result == DEVICE_OK && service.faults.kind() == FAULT_CRASH_NOW) {
        crash();
    }
    return result;
}

device_result report_status(service_state& service, const function_call& call, device_message& reply) {
    std::vector<std::int32_t> values(STATUS_FIELD_COUNT);
    values[STATUS_PROCESS] = ::getpid();
    values[STATUS_UPTIME] = static_cast<std::int32_t>((call.now - service.started) / 1000);
    values[STATUS_CONNECTIONS] = static_cast<std::int32_t>(service.connections.size());
    values[STATUS_OBSERVERS] = static_cast<std::int32_t>(service.observers.observers().size());
    values[STATUS_REQUESTS] = static_cast<std::int32_t>(service.request_count);
    values[STATUS_REFUSED] = static_cast<std::int32_t>(service.refused_count);
    values[STATUS_FAULT] = service.faults.kind();
    values[STATUS_FAULT_VALUE] = service.faults.value();
    values[STATUS_FAULT_REQUESTS] = service.faults.requests();
    reply = make_message(CONTROL_STATUS, values);
    return DEVICE_OK;
}

const std::vector<service_function>& functions() {
    using namespace velarion;
    static const std::vector<service_function> table = {
        {DVC_PNL_DEC_FUNCTION_SET_LED_STATUS,
         {DVC_PNL_DEC_PARAMETER_ID, DVC_PNL_DEC_PARAMETER_STATUS},
         set_led},
        {DVC_PNL_DEC_FUNCTION_SET_ALL_LED_ON, {}, set_all_leds_on},
        {DVC_PNL_DEC_FUNCTION_SET_ALL_LED_OFF, {}, set_all_leds_off},
        {DVC_PNL_DEC_FUNCTION_SET_LED_AIRPRINT_TIMER_PROC,
         {DVC_PNL_DEC_PARAMETER_TIMER, DVC_PNL_DEC_PARAMETER_TIMER_VALUE_1,
          DVC_PNL_DEC_PARAMETER_TIMER_VALUE_2, DVC_PNL_DEC_PARAMETER_TIMER_VALUE_3,
          DVC_PNL_DEC_PARAMETER_TIMER_VALUE_4},
         run_led_timer},
        {DVC_PNL_DEC_FUNCTION_ADD_KEY_OBSERVER, {DVC_PNL_DEC_PARAMETER_OBSERVER}, add_observer},
        {CONTROL_LIST_LEDS, {}, list_leds},
        {CONTROL_KEY_EVENT, {0, 1}, send_key_event},
        {CONTROL_SET_FAULT, {0, 1, 2}, set_fault},
        {CONTROL_STATUS, {}, report_status},
    };
    return table;
}

bool has_parameters(const device_message& request, const std::vector<std::int32_t>& ids) {
    return std::equal(ids.begin(), ids.end(), request.records.begin(), request.records.end(),
                      [](std::int32_t id, const device_record& record) { return id == record.id; });
}

/** Finds the function that a request is for. */
device_result find_function(const device_message& request, const service_function*& function) {
    const auto found =
        std::find_if(functions().begin(), functions().end(),
                     [&](const service_function& known) { return known.func_id == request.func_id; });
    if (found == functions().end()) {
        return DEVICE_UNKNOWN_FUNCTION;
    }
    if (request.records.size() != found->parameter_ids.size()) {
        return DEVICE_BAD_COUNT;
    }
    function = &*found;
    return has_parameters(request, found->parameter_ids) ? DEVICE_OK : DEVICE_BAD_PARAMETER;
}

} // namespace

device_result carry_out(service_state& service, std::uint32_t connection, const ipc_header& header,
                        const char* bytes, std::int64_t now, device_message& reply) {
    device_message request;
    device_result result = decode_message(bytes, header.length, request);
    if (result != DEVICE_OK) {
        return result;
    }
    if (request.func_id != header.func_id) {
        return DEVICE_UNKNOWN_FUNCTION;
    }
    const service_function* function = nullptr;
    result = find_function(request, function);
    if (result != DEVICE_OK) {
        return result;
    }
    function_call call = {connection, header.host, {}, now};
    call.values.reserve(request.records.size());
    for (const device_record& record : request.records) {
        call.values.push_back(record.value);
    }
    return function->run(service, call, reply);
}

} // namespace velarion
