#ifndef MACHINE_STATE_H
#define MACHINE_STATE_H

#include <QObject>

namespace velarion {

/**
 * The machine that the panel belongs to, as far as its screens show it: jobs, paper, toner, faults. It works
 * in steps, so that what a script replays comes out the same on every machine.
 */
class machine_state : public QObject {
    Q_OBJECT

public:
    machine_state() = default;

    /** A hard key that no screen had a use for. */
    void take_key(int key);

    /** A tenth of a second of work. */
    void step();

Q_SIGNALS:
    void changed();
};

} // namespace velarion

#endif
