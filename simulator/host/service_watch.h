#ifndef SERVICE_WATCH_H
#define SERVICE_WATCH_H

#include "control_connection.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QTimer>

namespace velarion {

enum class service_condition {
    ABSENT,
    STARTING,
    RUNNING,
    SLOW,    ///< answers late
    SILENT,  ///< stopped, or drops requests
    REFUSING ///< answers that it did not do what it was asked for
};

/**
 * What is to be said of the panel device service: from how it looks, what it says of itself and what becomes
 * of the panel's own requests. Thread of its owner.
 */
class service_watch : public QObject {
    Q_OBJECT

public:
    service_watch();

    void take_look(service_look look);
    /** @param reply  to CONTROL_STATUS @param ms  after which it came */
    void take_status(const device_message& reply, int ms);
    /** Of a request of the panel. */
    void take_result(int result, int ms);

    service_condition condition() const { return condition_; }
    /** Whether requests have an effect, be it late. */
    bool is_there() const {
        return condition_ == service_condition::RUNNING || condition_ == service_condition::SLOW;
    }
    /** Process of the service that is there, as it told last; 0: unknown. */
    int process() const { return process_; }
    /** For people: what is wrong and since when, or that it came back, or that all is well. */
    QString text() const;
    /** It came back within the last seconds. */
    bool is_just_back() const { return back_.isActive(); }

Q_SIGNALS:
    /** The condition is another one, or is no news any more. */
    void changed();

private:
    service_condition find_condition() const;
    QString reason() const;
    QString process_text() const;
    void update();

    service_look look_ = service_look::STARTING;
    int process_ = 0;
    int fault_ = 0;
    int fault_value_ = 0;
    int status_ms_ = 0;
    int last_result_ = 0;
    int last_ms_ = 0;
    service_condition condition_ = service_condition::STARTING;
    QString lost_for_; ///< what was wrong before it came back
    QElapsedTimer since_;
    bool was_good_ = false;
    QTimer back_;
};

} // namespace velarion

#endif
