#ifndef MAIN_WINDOW_H
#define MAIN_WINDOW_H

#include "heartbeat.h"
#include "pc_keys.h"

#include <QMainWindow>
#include <QTimer>

class QDockWidget;
class QLabel;
class QScrollArea;

namespace velarion {

class device_link;
class message_log;
class panel_view;
class service_keeper;
class simulation;
class trace_log;

/** What a window works with; outlives it. */
struct window_parts {
    simulation& panel;
    device_link& link;
    service_keeper& service;
    message_log& messages;
    trace_log& traces;
};

/** The simulator's window: the device, a side bar, menus, and what is to be said of the device service. */
class main_window : public QMainWindow {
    Q_OBJECT

public:
    explicit main_window(const window_parts& parts);

    /** Puts a widget beside the device, in the place of the one before; the window takes it over. */
    void set_side_bar(QWidget* side_bar);

    panel_view& view() { return *view_; }
    heartbeat& pulse() { return pulse_; }

    /** Shows a sentence in the status line for a while. */
    void tell(const QString& text);

    void save_screenshot();
    void show_keys();
    /** Hands the focus from display to keys to side bar, and back. */
    void go_to_next_pane();
    void show_side_bar(bool is_shown);
    bool has_side_bar() const { return side_bar_; }

Q_SIGNALS:
    void first_frame_shown();

protected:
    bool event(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void make_status_line();
    void show_service();
    void fit_screen();

    window_parts parts_;
    panel_view* view_ = nullptr;
    QWidget* face_ = nullptr;
    QScrollArea* area_ = nullptr;
    QDockWidget* side_bar_ = nullptr;
    QLabel* service_text_ = nullptr;
    QLabel* view_text_ = nullptr;
    QLabel* news_text_ = nullptr; ///< beside the service's, which stays
    QTimer machine_clock_;
    QTimer service_clock_;
    QTimer news_clock_;
    heartbeat pulse_;
    pc_keys keys_;
    bool has_painted_ = false;
};

/** Adds the menus of a window. */
void add_window_menus(main_window& window, const window_parts& parts);

} // namespace velarion

#endif
