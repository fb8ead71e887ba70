#ifndef HEARTBEAT_H
#define HEARTBEAT_H

#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace velarion {

/** Measures the longest time in which the event loop of its thread came to nothing. */
class heartbeat {
public:
    heartbeat() {
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { beat(); });
        timer_.setTimerType(Qt::PreciseTimer);
        timer_.start(PERIOD);
        since_.start();
    }

    /** @return the longest pause in ms since the start or the last call, that of the timer left out */
    int take_longest() {
        beat();
        return static_cast<int>(std::exchange(longest_, 0));
    }

private:
    static constexpr int PERIOD = 10;

    void beat() { longest_ = std::max(longest_, since_.restart() - PERIOD); }

    QTimer timer_;
    QElapsedTimer since_;
    qint64 longest_ = 0;
};

} // namespace velarion

#endif
