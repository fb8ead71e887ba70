#include "host_receiver.h"

#include "dvc_pnl_dec_communication.h"
#include "dvc_pnl_dec_facade.h"
#include "dvc_pnl_dec_serialize.h"
#include "ipc_header.h"

#include <QTimer>

#include <algorithm>
#include <cstring>

namespace {

using velarion::dvc_pnl_dec_facade;
using velarion::dvc_pnl_dec_key_event_observer;

const int NO_ANSWER = -1;
const int PAUSE_WITHOUT_ANSWER = 1000; // milliseconds; the wait for an answer has blocked the event loop

/** Room for any message, laid out so that the serializer can read it. */
struct MESSAGE {
    velarion::DVC_PNL_DEC_OBSERVER_COMMUNICATION_HEADER header;
    unsigned char rest[panel_platform::IPC_LONGEST_MESSAGE - velarion::DVC_PNL_DEC_HEADER_LENGTH];
};

bool decode_key_event(const char* bytes, unsigned int length, int& key, int& status) {
    MESSAGE message;
    if (length > sizeof message || !velarion::dvc_pnl_dec_is_complete(bytes, length)) {
        return false;
    }
    std::memcpy(&message, bytes, length);
    velarion::dvc_pnl_dec_serialize serializer;
    if (message.header.func_id != velarion::DVC_PNL_DEC_FUNCTION_NOTIFY_KEY_EVENT ||
        serializer.decode(&message.header) == 0) {
        return false;
    }
    key = serializer.decoded_id;
    status = serializer.decoded_status;
    return true;
}

} // namespace

int host_receiver::add_observer(dvc_pnl_dec_key_event_observer* observer, const QObject* owner) {
    const int result = dvc_pnl_dec_facade::dvc_pnl_dec_get_instance()->dvc_pnl_dec_add_key_observer(observer);
    if (result != 0 && result != NO_ANSWER) {
        return result;
    }
    forget_observer(observer);
    ENTRY entry = {observer, {}};
    if (owner) {
        entry.owner_watch = QObject::connect(owner, &QObject::destroyed, &event_loop_,
                                             [this, observer] { forget_observer(observer); });
    }
    entries_.push_back(entry);
    return result;
}

void host_receiver::forget_observer(const dvc_pnl_dec_key_event_observer* observer) {
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const ENTRY& entry) { return entry.observer == observer; });
    if (found != entries_.end()) {
        QObject::disconnect(found->owner_watch);
        entries_.erase(found);
    }
}

void host_receiver::dispatch(long, char* rcv_buf, unsigned int rcv_buflen, gen_ipc_msghdr) {
    panel_platform::IPC_HEADER header;
    if (!rcv_buf || !panel_platform::read_ipc_header(rcv_buf, rcv_buflen, header)) {
        return;
    }
    if (header.kind == panel_platform::IPC_GREETING) {
        QMetaObject::invokeMethod(
            &event_loop_, [this] { register_all(); }, Qt::QueuedConnection);
        return;
    }
    int key = 0;
    int status = 0;
    if (header.kind == panel_platform::IPC_NOTIFICATION &&
        decode_key_event(rcv_buf, rcv_buflen, key, status)) {
        const std::uint32_t number = header.destination;
        QMetaObject::invokeMethod(
            &event_loop_, [this, number, key, status] { take_key_event(number, key, status); },
            Qt::QueuedConnection);
    }
}

bool host_receiver::has_observer(const dvc_pnl_dec_key_event_observer* observer) const {
    return std::any_of(entries_.begin(), entries_.end(),
                       [&](const ENTRY& entry) { return entry.observer == observer; });
}

/** An observer that is called may add and forget observers, itself among them. */
void host_receiver::take_key_event(std::uint32_t number, int key, int status) {
    const std::vector<ENTRY> entries = entries_;
    for (const ENTRY& entry : entries) {
        if (velarion::dvc_pnl_dec_observer_number(entry.observer) != number ||
            !has_observer(entry.observer)) {
            continue;
        }
        if (status == velarion::DVC_PNL_DEC_KEY_PRESSED) {
            entry.observer->dvc_pnl_dec_key_pressed(key);
        } else if (status == velarion::DVC_PNL_DEC_KEY_RELEASED) {
            entry.observer->dvc_pnl_dec_key_released(key);
        }
    }
}

void host_receiver::register_all() {
    waiting_.clear();
    for (auto entry = entries_.rbegin(); entry != entries_.rend(); ++entry) { // taken from the end
        waiting_.push_back(entry->observer);
    }
    register_waiting();
}

void host_receiver::register_waiting() {
    while (!waiting_.empty()) {
        dvc_pnl_dec_key_event_observer* const observer = waiting_.back();
        waiting_.pop_back();
        if (has_observer(observer) &&
            dvc_pnl_dec_facade::dvc_pnl_dec_get_instance()->dvc_pnl_dec_add_key_observer(observer) ==
                NO_ANSWER) {
            QTimer::singleShot(PAUSE_WITHOUT_ANSWER, &event_loop_, [this] { register_waiting(); });
            return;
        }
    }
}
