#ifndef SIMULATION_H
#define SIMULATION_H

#include "machine_state.h"
#include "panel_frame.h"
#include "panel_host.h"

#include <QObject>

namespace velarion {

/** A language selection of the library: (language id, option language id). */
struct language_choice {
    int language_id;
    int option_language_id;
};

/** A panel at work in this process: library, machine and display, made and destroyed in the order of a host.
 */
class simulation : public QObject {
    Q_OBJECT

public:
    simulation();

    machine_state& machine() { return machine_; }
    panel_frame& panel() { return panel_; }

    /** Every language that the panel can show: the standard ones, then those of the slots. */
    static std::vector<language_choice> languages();

    /** What a user of the panel chooses: the preferred language. 0, 0 ends it. */
    void choose_language(const language_choice& choice);
    /** The machine's own language. */
    void choose_standard_language(const language_choice& choice);

Q_SIGNALS:
    void language_changed();

private:
    void show_language();

    panel_host host_;
    machine_state machine_;
    panel_frame panel_;
};

} // namespace velarion

#endif
