#ifndef HOST_RECEIVER_H
#define HOST_RECEIVER_H

#include "dvc_pnl_dec_key_event_observer.h"
#include "message_layer.h"

#include <QObject>

#include <cstdint>
#include <vector>

/**
 * The receiving side of a host process: calls its key observers on the event loop of the thread that
 * made this object.
 *
 *     host_receiver receiver;
 *     panel_platform::message_delivery delivery(receiver, velarion::DVC_PNL_DEC_SERVICE_NAME);
 *     receiver.add_observer(&observer, &window);
 *
 * The delivery, made after the receiver, is destroyed before it. All operations but dispatch() belong to the
 * thread of the event loop.
 */
class host_receiver : public velarion::facade_template {
public:
    host_receiver() = default;
    /** No observer is called from here on. Nothing may call dispatch() any more. */
    ~host_receiver() override = default;
    host_receiver(const host_receiver&) = delete;
    host_receiver& operator=(const host_receiver&) = delete;

    /**
     * Registers an observer with the service, now and each time the service was started anew. Added once
     * more, it gets the new owner; when it is then refused, all stays as it was.
     *
     * @param observer  stays the caller's; not null
     * @param owner     the observer is forgotten when this object is destroyed; null: forget_observer() has
     *                  to be called before the observer is destroyed
     * @return 0; -1 when the service does not answer: the observer is then registered when the service
     *         greets this process the next time; any other result of the service, which leaves the observer
     *         unregistered
     */
    int add_observer(velarion::dvc_pnl_dec_key_event_observer* observer, const QObject* owner = nullptr);

    /**
     * Ends the calls of an observer, at once; also while it is being called. The service, which has no
     * request for it, keeps counting the observer among the 64 of this process.
     */
    void forget_observer(const velarion::dvc_pnl_dec_key_event_observer* observer);

    /** Takes a message that the platform received. Any thread; observers are called later, by the event loop.
     */
    void dispatch(long func_id, char* rcv_buf, unsigned int rcv_buflen, gen_ipc_msghdr header) override;

private:
    struct ENTRY {
        velarion::dvc_pnl_dec_key_event_observer* observer;
        QMetaObject::Connection owner_watch;
    };

    bool has_observer(const velarion::dvc_pnl_dec_key_event_observer* observer) const;
    void take_key_event(std::uint32_t number, int key, int status);
    void register_all();
    void register_waiting();

    std::vector<ENTRY> entries_;
    std::vector<velarion::dvc_pnl_dec_key_event_observer*> waiting_; ///< to be registered; the last first
    QObject event_loop_; ///< what waits in the event loop for it is dropped when it is destroyed
};

#endif
