#ifndef MESSAGE_LOG_H
#define MESSAGE_LOG_H

#include "device_message.h"
#include "event_loop_queue.h"
#include "message_watch.h"
#include "trace_watch.h"

#include <QObject>
#include <QString>
#include <QTime>

#include <deque>
#include <string>

namespace velarion {

/** A message between this process and the device service, in words. */
struct message_entry {
    QTime time; ///< when it was sent or came
    bool is_notification = false;
    QString function;   ///< "set_led (101)"
    QString parameters; ///< "led start, status blink_slow"
    QString result;     ///< "done", "refused: unknown LED", "no answer"; empty for a notification
    bool is_good = true;
    double ms = 0; ///< that the request took
};

/** @return a message in words, without time and result */
message_entry describe_message(const device_message& message);

/** Keeps the last messages of this process and tells of each one. Thread of its owner; one at a time. */
class message_log : public QObject, private message_watch {
    Q_OBJECT

public:
    static constexpr std::size_t MOST_ENTRIES = 500;

    message_log();
    ~message_log() override;

    const std::deque<message_entry>& entries() const { return entries_; }

Q_SIGNALS:
    /** It is the last of entries(). */
    void added(const velarion::message_entry& entry);

private:
    void take_request(const watched_message& request) override;
    void take_notification(const watched_message& notification) override;
    void add(message_entry entry, std::int64_t begun);

    std::deque<message_entry> entries_;
    event_loop_queue queue_;
};

/** Keeps the last trace records of this process. Thread of its owner; one at a time. */
class trace_log : public QObject, private trace_watch {
    Q_OBJECT

public:
    static constexpr std::size_t MOST_RECORDS = 500;

    /** @param prints  whether they go to standard error as well */
    explicit trace_log(bool prints);
    ~trace_log() override;

    const std::deque<QString>& records() const { return records_; }

Q_SIGNALS:
    void added(const QString& record);

private:
    bool take_trace(const std::string& record) override;

    const bool prints_;
    std::deque<QString> records_;
    event_loop_queue queue_;
};

} // namespace velarion

#endif
