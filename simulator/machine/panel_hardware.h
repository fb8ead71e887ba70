#ifndef PANEL_HARDWARE_H
#define PANEL_HARDWARE_H

#include <QObject>

#include <map>

namespace velarion {

/** What an LED of the panel shows. */
struct led_state {
    int wanted = UNKNOWN; ///< DVC_PNL_DEC_LED_STATUS_ID that was asked for last
    int told = UNKNOWN;   ///< status that the device service tells; UNKNOWN while it tells nothing
    bool is_lit = false;

    static constexpr int UNKNOWN = -1;
};

/** LEDs and hard keys of the panel, as screens see them. Thread of the screens; nothing waits. */
class panel_hardware : public QObject {
    Q_OBJECT

public:
    /** @param status  DVC_PNL_DEC_LED_STATUS_ID, on its way to the device service when this returns */
    virtual void set_led(int led, int status) = 0;
    virtual led_state led(int led) const = 0;
    /** Whether the device service answers. */
    virtual bool is_there() const = 0;

Q_SIGNALS:
    /** What was asked for, or what the service tells, is another one. */
    void led_changed(int led);
    void key_changed(int key, bool is_pressed);
    void presence_changed(bool is_there);
};

/** A panel without a device service: keeps what is asked for; nobody tells anything. */
class absent_hardware : public panel_hardware {
    Q_OBJECT

public:
    void set_led(int led, int status) override;
    led_state led(int led) const override;
    bool is_there() const override { return false; }

private:
    std::map<int, int> wanted_;
};

} // namespace velarion

#endif
