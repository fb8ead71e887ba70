#ifndef DEVICE_LINK_H
#define DEVICE_LINK_H

#include "control_connection.h"
#include "dvc_pnl_dec_key_event_observer.h"
#include "event_loop_queue.h"
#include "host_receiver.h"
#include "message_delivery.h"
#include "panel_hardware.h"
#include "service_watch.h"

#include <QElapsedTimer>

#include <array>
#include <memory>
#include <optional>

namespace velarion {

class led_sender;

/**
 * The panel's hardware behind the panel device service. What waits for the service are threads: nothing here
 * does, at the end neither. LEDs are set again and keys registered again by each service that greets.
 */
class device_link : public panel_hardware, private dvc_pnl_dec_key_event_observer {
    Q_OBJECT

public:
    device_link();
    ~device_link() override;

    /** Goes to work. The first request to the device makes the library's facade: the library's resources are
     * there before. Once more has no effect. */
    void start();

    void set_led(int led, int status) override;
    led_state led(int led) const override;
    bool is_there() const override { return watch_.is_there(); }

    /** Whether the service has an observer of its keys; this object's as a rule. */
    bool has_keys() const { return has_keys_; }

    /** A finger on a hard key: the service tells the key's observers, this object among them. */
    void move_key(int key, bool is_pressed, control_connection::reply_taker done = {});
    /** Has the service misbehave. @param kind  fault_kind @param requests  that it is for; 0: all */
    void set_fault(int kind, int value = 0, int requests = 0);

    service_watch& watch() { return watch_; }
    const service_watch& watch() const { return watch_; }
    control_connection* control() { return control_ ? &*control_ : nullptr; } ///< null before start()

private:
    void dvc_pnl_dec_key_pressed(int key_id) override;
    void dvc_pnl_dec_key_released(int key_id) override;
    void take_event(const device_message& event);
    void take_led(int led, int status, bool is_lit);
    void take_look(service_look look);
    void take_status(const device_message& reply, int ms);
    void take_condition();
    void ask_again();

    std::array<led_state, LED_COUNT> leds_;
    service_watch watch_;
    bool was_there_ = false;
    bool has_keys_ = false;
    QElapsedTimer since_retry_;
    event_loop_queue results_; ///< of the LED sender
    std::shared_ptr<led_sender> sender_;
    host_receiver receiver_;
    std::optional<message_delivery> delivery_;
    std::optional<control_connection> control_;
};

} // namespace velarion

#endif
