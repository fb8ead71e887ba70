#ifndef LED_LAMP_H
#define LED_LAMP_H

#include <QWidget>

namespace velarion {

class panel_hardware;

/** An LED on the device's face with its label, as the device service says it is. */
class led_lamp : public QWidget {
public:
    /** @param hardware  outlives it */
    led_lamp(int led, panel_hardware& hardware);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void refresh();

    const int led_;
    panel_hardware& hardware_;
};

} // namespace velarion

#endif
