#ifndef LED_SENDER_H
#define LED_SENDER_H

#include "device_protocol.h"
#include "dvc_pnl_dec_types.h"

#include <array>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>

namespace velarion {

/**
 * Sets the LEDs through the library's facade, by a thread that waits for the service in place of its owner.
 * Only what changed is sent; while the service is slow, the newest wish of each LED takes the place of those
 * before it. Any thread.
 */
class led_sender : public std::enable_shared_from_this<led_sender> {
public:
    /** @param result  of the service, or -1 without an answer @param ms  that the request took */
    using result_hook = std::function<void(int result, int ms)>;

    /** @param hook  called by the thread, with this object locked: it must not call it */
    explicit led_sender(result_hook hook);

    void want(int led, int status);
    /** Sends every wish once more: the service may not know them. */
    void begin_anew();
    /** Ends the thread as soon as the service lets it; does not wait for that. Nobody is told any more. */
    void end();

private:
    static constexpr int NONE = -1;

    /** What one request asks for. */
    struct setting {
        int led; ///< ALL or the LED's number
        int status;
    };
    static constexpr int ALL = LED_COUNT;

    void start();
    void run();
    bool find_setting(setting& next) const;
    bool take_result(const setting& sent, std::uint64_t round, int result, int ms);
    static int send(const setting& next);

    const result_hook hook_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::array<int, LED_COUNT> wanted_;
    std::array<int, LED_COUNT> sent_; ///< that the service answered, done or refused
    std::uint64_t round_ = 0;
    bool is_started_ = false;
    bool is_ending_ = false;
};

} // namespace velarion

#endif
