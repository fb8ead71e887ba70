#ifndef HARDWARE_TAB_H
#define HARDWARE_TAB_H

#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <functional>

class QGridLayout;
class QLabel;
class QSpinBox;
class QTreeWidget;

namespace velarion {

class device_link;

/** Carries out a command for the device service. @return what is wrong, or an empty text */
using service_command = std::function<QString(const QStringList& words)>;

/** LEDs as the service tells them, hard keys to press, and faults of the service. */
class hardware_tab : public QWidget {
    Q_OBJECT

public:
    /** @param link  outlives it */
    hardware_tab(device_link& link, service_command run_command);

Q_SIGNALS:
    void told(const QString& text);

private:
    QWidget* make_service();
    /** A command with a number to choose. */
    void add_value(QGridLayout& layout, int column, const char* label, const char* command, QSpinBox* field);
    QWidget* make_keys();
    void run(const QStringList& words);
    void show_service();
    void show_led(int led);

    device_link& link_;
    service_command run_command_;
    QLabel* service_ = nullptr;
    QTreeWidget* leds_;
    QTimer clock_;
};

} // namespace velarion

#endif
