#ifndef HOST_RECEIVER_H
#define HOST_RECEIVER_H

#include "dvc_pnl_dec_key_event_observer.h"
#include "event_loop_queue.h"
#include "message_layer.h"

#include <QObject>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace velarion {

class observer_registrar;

/**
 * The receiving side of a host process: calls its key observers on the event loop of the thread that
 * made this object.
 *
 *     host_receiver receiver;
 *     receiver.set_service_hook([&] { window.show_leds(); });
 *     message_delivery delivery(receiver, DVC_PNL_DEC_SERVICE_NAME);
 *     receiver.add_observer(&observer, &window);
 *
 * The delivery, made after the receiver, is destroyed before it. All operations but dispatch() belong to the
 * thread of the event loop; none waits for the service.
 */
class host_receiver : public facade_template {
public:
    host_receiver();
    /** No observer and no hook is called from here on. Nothing may call dispatch() any more. */
    ~host_receiver() override;
    host_receiver(const host_receiver&) = delete;
    host_receiver& operator=(const host_receiver&) = delete;

    /**
     * Has an observer registered with the service: as soon as the service answers, and again each time it was
     * started anew, in the order in which observers were added. Added once more, it keeps its place and gets
     * the new owner.
     *
     * @param observer  stays the caller's; not null
     * @param owner     the observer is forgotten when this object is destroyed; null: forget_observer() has
     *                  to be called before the observer is destroyed
     */
    void add_observer(dvc_pnl_dec_key_event_observer* observer, const QObject* owner = nullptr);

    /**
     * Ends the calls of an observer, at once; also while it is being called. The service, which has no
     * request for it, keeps counting the observer among the 64 of this process.
     */
    void forget_observer(const dvc_pnl_dec_key_event_observer* observer);

    /**
     * @param hook  called by the event loop each time the service greets this process, the first time
     * included: it may have been started anew and know neither LEDs nor observers. The observers have been
     *              asked for again by then. It may use the receiver, but not destroy it
     */
    void set_service_hook(std::function<void()> hook);

    /**
     * @param hook  called by the event loop when the service refuses an observer, with the service's result.
     *              The observer is asked for again when the service greets this process the next time, at the
     *              latest, and when it is added once more. The hook may use the receiver, but not destroy it
     */
    void set_refusal_hook(std::function<void(dvc_pnl_dec_key_event_observer* observer, int result)> hook);

    /** Takes a message that the platform received. Any thread; observers are called later, by the event loop.
     */
    void dispatch(long func_id, char* rcv_buf, unsigned int rcv_buflen, gen_ipc_msghdr header) override;

private:
    struct observer_entry {
        dvc_pnl_dec_key_event_observer* observer;
        QMetaObject::Connection owner_watch;
        std::uint64_t ticket; ///< of the registrar
    };

    std::vector<observer_entry>::iterator find(const dvc_pnl_dec_key_event_observer* observer);
    void take_key_event(std::uint32_t number, int key, int status);
    void take_greeting();
    void take_refusal(std::uint64_t ticket, int result);

    std::vector<observer_entry> entries_;
    std::function<void()> service_hook_;
    std::function<void(dvc_pnl_dec_key_event_observer*, int)> refusal_hook_;
    std::shared_ptr<observer_registrar> registrar_;
    QObject watches_; ///< on the owners of observers
    event_loop_queue queue_;
};

} // namespace velarion

#endif
