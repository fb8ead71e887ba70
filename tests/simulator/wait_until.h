#ifndef WAIT_UNTIL_H
#define WAIT_UNTIL_H

#include <QCoreApplication>
#include <QElapsedTimer>

#include <functional>

/** Lets the events come until something is so, for a minute at most. @return whether it is */
inline bool wait_until(const std::function<bool()>& is_so) {
    constexpr qint64 ENOUGH = 60000; // milliseconds
    constexpr int LONGEST_PAUSE = 2; // milliseconds
    QElapsedTimer time;
    time.start();
    bool is_done = is_so();
    while (!is_done && time.elapsed() < ENOUGH) {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, LONGEST_PAUSE);
        is_done = is_so();
    }
    return is_done;
}

#endif
