#include "host_receiver.h"

#include "dvc_pnl_dec_communication.h"
#include "dvc_pnl_dec_serialize.h"
#include "ipc_header.h"
#include "observer_registrar.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace velarion {

namespace {

/** Room for any message, laid out so that the serializer can read it. */
struct message_room {
    DVC_PNL_DEC_OBSERVER_COMMUNICATION_HEADER header;
    unsigned char rest[IPC_LONGEST_MESSAGE - DVC_PNL_DEC_HEADER_LENGTH];
};

bool decode_key_event(const char* bytes, unsigned int length, int& key, int& status) {
    message_room message;
    if (length > sizeof message || !dvc_pnl_dec_is_complete(bytes, length)) {
        return false;
    }
    std::memcpy(&message, bytes, length);
    dvc_pnl_dec_serialize serializer;
    if (message.header.func_id != DVC_PNL_DEC_FUNCTION_NOTIFY_KEY_EVENT ||
        serializer.decode(&message.header) == 0) {
        return false;
    }
    key = serializer.decoded_id;
    status = serializer.decoded_status;
    return true;
}

} // namespace

host_receiver::host_receiver()
    : registrar_(std::make_shared<observer_registrar>([this](std::uint64_t ticket, int result) {
        queue_.post([this, ticket, result] { take_refusal(ticket, result); });
    })) {}

host_receiver::~host_receiver() {
    registrar_->end();
}

void host_receiver::add_observer(dvc_pnl_dec_key_event_observer* observer, const QObject* owner) {
    auto entry = find(observer);
    if (entry == entries_.end()) {
        entry = entries_.insert(entry, {observer, {}, registrar_->ask_for(observer)});
    } else {
        registrar_->begin_anew();
    }
    QObject::disconnect(entry->owner_watch);
    if (owner) {
        entry->owner_watch = QObject::connect(owner, &QObject::destroyed, &watches_,
                                              [this, observer] { forget_observer(observer); });
    }
}

void host_receiver::forget_observer(const dvc_pnl_dec_key_event_observer* observer) {
    const auto found = find(observer);
    if (found != entries_.end()) {
        registrar_->withdraw(found->ticket);
        QObject::disconnect(found->owner_watch);
        entries_.erase(found);
    }
}

void host_receiver::set_service_hook(std::function<void()> hook) {
    service_hook_ = std::move(hook);
}

void host_receiver::set_refusal_hook(std::function<void(dvc_pnl_dec_key_event_observer*, int)> hook) {
    refusal_hook_ = std::move(hook);
}

void host_receiver::dispatch(long, char* rcv_buf, unsigned int rcv_buflen, gen_ipc_msghdr) {
    ipc_header header;
    if (!rcv_buf || !read_ipc_header(rcv_buf, rcv_buflen, header)) {
        return;
    }
    if (header.kind == IPC_GREETING) {
        queue_.post([this] { take_greeting(); });
        return;
    }
    int key = 0;
    int status = 0;
    if (header.kind == IPC_NOTIFICATION && decode_key_event(rcv_buf, rcv_buflen, key, status)) {
        const std::uint32_t number = header.destination;
        queue_.post([this, number, key, status] { take_key_event(number, key, status); });
    }
}

std::vector<host_receiver::observer_entry>::iterator
host_receiver::find(const dvc_pnl_dec_key_event_observer* observer) {
    return std::find_if(entries_.begin(), entries_.end(),
                        [observer](const observer_entry& entry) { return entry.observer == observer; });
}

/** An observer that is called may add and forget observers, itself among them. */
void host_receiver::take_key_event(std::uint32_t number, int key, int status) {
    const std::vector<observer_entry> entries = entries_;
    for (const observer_entry& entry : entries) {
        if (dvc_pnl_dec_observer_number(entry.observer) != number || find(entry.observer) == entries_.end()) {
            continue;
        }
        if (status == DVC_PNL_DEC_KEY_PRESSED) {
            entry.observer->dvc_pnl_dec_key_pressed(key);
        } else if (status == DVC_PNL_DEC_KEY_RELEASED) {
            entry.observer->dvc_pnl_dec_key_released(key);
        }
    }
}

void host_receiver::take_greeting() {
    registrar_->begin_anew();
    if (const auto hook = service_hook_) { // which may set another one
        hook();
    }
}

void host_receiver::take_refusal(std::uint64_t ticket, int result) {
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [ticket](const observer_entry& entry) { return entry.ticket == ticket; });
    const auto hook = refusal_hook_;
    if (found != entries_.end() && hook) {
        hook(found->observer, result);
    }
}

} // namespace velarion
