#include "panel_service.h"

#include "device_names.h"
#include "service_functions.h"
#include "service_log.h"

#include <algorithm>
#include <utility>

namespace velarion {

namespace {

bool is_control(std::int32_t func_id) {
    return func_id >= CONTROL_LIST_LEDS && func_id <= CONTROL_STATUS;
}

} // namespace

panel_service::panel_service(message_sender sender, std::int64_t now)
    : state_(std::move(sender), now) {}

void panel_service::connected(std::uint32_t connection, pid_t process) {
    write_log(SERVICE_LOG_DEBUG, "connection %u: made by process %ld", connection,
              static_cast<long>(process));
    state_.connections[connection] = {process, 0, false};
    ipc_header header;
    header.kind = IPC_GREETING;
    std::vector<char> greeting(IPC_HEADER_LENGTH);
    header.length = static_cast<std::uint32_t>(greeting.size());
    write_ipc_header(header, greeting.data());
    state_.sender(connection, std::move(greeting));
    state_.monitor.tell(EVENT_HOST_CAME, {static_cast<std::int32_t>(connection), process});
}

void panel_service::disconnected(std::uint32_t connection) {
    const auto found = state_.connections.find(connection);
    if (found == state_.connections.end()) {
        return;
    }
    const pid_t process = found->second.process;
    const std::uint64_t host = found->second.host;
    write_log(SERVICE_LOG_DEBUG, "connection %u: gone", connection);
    state_.connections.erase(found);
    if (!has_connection(host)) {
        state_.observers.forget(owner_of(host, connection));
    }
    delayed_.forget(connection);
    state_.monitor.forget(connection);
    state_.monitor.tell(EVENT_HOST_GONE, {static_cast<std::int32_t>(connection), process});
}

/** @return whether a host, which has a number, has a connection still */
bool panel_service::has_connection(std::uint64_t host) const {
    return host != 0 && std::any_of(state_.connections.begin(), state_.connections.end(),
                                    [&](const auto& entry) { return entry.second.host == host; });
}

bool panel_service::receive(std::uint32_t connection, const ipc_header& header, const char* bytes,
                            std::int64_t now) {
    host_connection& sender = state_.connections.at(connection);
    if (sender.host == 0) {
        sender.host = header.host;
    }
    if (sender.host != header.host) {
        return false;
    }
    if (header.kind == IPC_ATTACH) {
        return attach(connection, header);
    }
    if (delayed_.is_full(connection)) {
        return false;
    }
    advance(now);
    if (header.kind == IPC_PROBE) {
        return answer_probe(connection, header, bytes, now);
    }
    if (header.kind != IPC_REQUEST) {
        return false;
    }
    answer(connection, header, bytes, now);
    return true;
}

bool panel_service::attach(std::uint32_t number, const ipc_header& header) {
    if (header.host == 0 || header.length != IPC_HEADER_LENGTH ||
        header.destination > ATTACH_EVENTS_AND_EDGES) {
        return false;
    }
    state_.connections.at(number).takes_notifications = true;
    if (header.destination != ATTACH_OWN) {
        state_.monitor.add(number, header.destination);
    }
    return true;
}

void panel_service::answer(std::uint32_t number, const ipc_header& header, const char* bytes,
                           std::int64_t now) {
    const bool is_faulty = !is_control(header.func_id);
    const fault_kind fault = is_faulty ? take_fault(number) : FAULT_NONE;
    device_message reply;
    reply.result =
        fault == FAULT_FAIL ? state_.faults.value() : carry_out(state_, number, header, bytes, now, reply);
    reply.func_id = header.func_id;
    state_.request_count += is_faulty ? 1U : 0U;
    if (reply.result != DEVICE_OK) {
        state_.refused_count += is_faulty ? 1U : 0U;
        write_log(SERVICE_LOG_INFO, "connection %u: function %d: %s", number, header.func_id,
                  result_text(reply.result).c_str());
        state_.monitor.tell(EVENT_REFUSED, {static_cast<std::int32_t>(number), header.func_id, reply.result});
    }
    ipc_header reply_header;
    reply_header.kind = IPC_REPLY;
    reply_header.sequence = header.sequence;
    send_reply(number, encode_message(reply, reply_header), fault, now);
}

/** A service that leaves requests without an answer does so with probes; other faults are none of theirs. */
bool panel_service::answer_probe(std::uint32_t number, const ipc_header& header, const char* bytes,
                                 std::int64_t now) {
    if (header.length != IPC_HEADER_LENGTH) {
        return false;
    }
    const bool is_faulty = state_.faults.kind() == FAULT_DELAY || state_.faults.kind() == FAULT_DROP;
    send_reply(number, {bytes, bytes + header.length}, is_faulty ? state_.faults.take() : FAULT_NONE, now);
    return true;
}

void panel_service::send_reply(std::uint32_t number, std::vector<char> message, fault_kind fault,
                               std::int64_t now) {
    if (fault == FAULT_DELAY) {
        delayed_.add(number, std::move(message), now + state_.faults.value());
    } else if (fault != FAULT_DROP) {
        state_.sender(number, std::move(message));
    }
}

fault_kind panel_service::take_fault(std::uint32_t connection) {
    const fault_kind fault = state_.faults.take();
    if (fault != FAULT_NONE) {
        write_log(SERVICE_LOG_INFO, "connection %u: fault %s, as ordered", connection,
                  fault_name(fault).c_str());
        state_.monitor.tell(EVENT_FAULT, {static_cast<std::int32_t>(connection), fault});
    }
    if (fault == FAULT_CRASH) {
        crash();
    }
    return fault;
}

void panel_service::advance(std::int64_t now) {
    std::vector<led_change> changes;
    state_.leds.advance(now, changes);
    state_.monitor.tell(changes);
    delayed_.send_due(now, state_.sender);
}

std::int64_t panel_service::next_deadline() const {
    const std::int64_t led = state_.leds.next_change();
    const std::int64_t reply = delayed_.next_due();
    if (led < 0 || reply < 0) {
        return std::max(led, reply);
    }
    return std::min(led, reply);
}

} // namespace velarion
