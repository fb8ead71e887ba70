#ifndef OBSERVER_REGISTRAR_H
#define OBSERVER_REGISTRAR_H

#include "dvc_pnl_dec_key_event_observer.h"

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace velarion {

/**
 * Has observers registered with the service, in the order they were asked for, by a thread that waits for the
 * service in place of its owner. Whenever the service did not answer it begins again with the first one: it
 * may be another service that answers then. Observers are never looked into, so that they may be destroyed at
 * any time. Any thread.
 */
class observer_registrar : public std::enable_shared_from_this<observer_registrar> {
public:
    using ticket_number = std::uint64_t; ///< 0 is none's
    using refusal_hook = std::function<void(ticket_number ticket, int result)>;

    /** @param refused  called by the thread with each result of the service but 0; must not call this object
     */
    explicit observer_registrar(refusal_hook refused);

    ticket_number ask_for(dvc_pnl_dec_key_event_observer* observer);
    /** Asks for all once more, from the first on. */
    void begin_anew();
    /** Nobody is told any more what becomes of it; a request that is under way reaches the service. */
    void withdraw(ticket_number ticket);
    /** Ends the thread as soon as the service lets it; does not wait for that. Nobody is told any more. */
    void end();

private:
    struct observer_request {
        ticket_number ticket;
        dvc_pnl_dec_key_event_observer* observer;
    };

    void start();
    void run();
    bool take_result(const observer_request& request, std::uint64_t round, int result);

    const refusal_hook refused_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<observer_request> requests_; ///< as they are to be asked for
    std::size_t answered_ = 0;               ///< so many of them, the first ones, were answered in this round
    std::uint64_t round_ = 0;
    ticket_number last_ticket_ = 0;
    bool is_started_ = false;
    bool is_ending_ = false;
};

} // namespace velarion

#endif
