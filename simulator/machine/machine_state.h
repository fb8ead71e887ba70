#ifndef MACHINE_STATE_H
#define MACHINE_STATE_H

#include "job_list.h"
#include "machine_settings.h"
#include "paper_jam.h"
#include "stored_document.h"
#include "supplies.h"

#include <QObject>

#include <optional>
#include <set>
#include <vector>

namespace velarion {

/** What the machine does at the moment; the first that is true, from the end. */
enum class machine_condition { READY, READING, PRINTING, SENDING, PAUSED, NO_PAPER, JAMMED, ASLEEP };

/**
 * The machine that the panel belongs to, as far as its screens show it: jobs, paper, toner, faults, settings.
 * It works in steps and has no other clock, so that what a script replays comes out the same on every
 * machine.
 */
class machine_state : public QObject {
    Q_OBJECT

public:
    machine_state();

    /** A tenth of a second of work. */
    void step();
    /** Steps since the machine was switched on: the clock of animations. */
    int steps() const { return steps_; }
    /** Its time of day, "10:05". */
    QString clock() const;

    machine_condition condition() const;

    /** A hard key that no screen had a use for. */
    void take_key(int key);
    void set_asleep(bool is_asleep);

    int originals() const { return originals_; } ///< in the document feeder
    void set_originals(int originals) { change(originals_, originals); }

    /** Every job, the newest last; those that wait begin in this order. */
    const std::vector<machine_job>& jobs() const { return jobs_.all(); }
    /** The job that runs or is paused, or null. */
    const machine_job* current_job() const { return jobs_.current(); }

    /** Each begins a job with the settings of its kind, or puts it behind the current one. @return whether
     * the settings and the originals allow it */
    bool start_copy();
    bool start_scan();
    bool start_fax();

    /** What the machine keeps. */
    const std::vector<stored_document>& documents() const { return documents_; }
    /** Begins a job for each document of these numbers. @return whether there was one */
    bool print_documents(const std::set<int>& numbers);
    void delete_documents(const std::set<int>& numbers);

    /** The current job; without effect when there is none, or when it cannot be. */
    void pause_job();
    void resume_job();
    void cancel_job();

    const std::optional<paper_jam>& jam() const { return jam_; }
    void raise_jam(const jam_place& place);
    /** The user did a step of removing the paper; after the last one the jam is cleared. */
    void do_jam_step();
    /** The user went back by a step. */
    void undo_jam_step();
    /** All the paper is out: the current job goes on. */
    void clear_jam();

    /** Trays 1 to 4, then the bypass tray. */
    const std::vector<paper_tray>& trays() const { return trays_; }
    /** Replaces the tray of the same number. */
    void set_tray(const paper_tray& tray);
    const std::vector<toner_bottle>& toner() const { return toner_; }
    void set_toner(toner_color color, int percent);

    const copy_settings& copy() const { return copy_; }
    void set_copy(const copy_settings& settings) { change(copy_, settings); }
    const scan_settings& scan() const { return scan_; }
    void set_scan(const scan_settings& settings) { change(scan_, settings); }
    const fax_settings& fax() const { return fax_; }
    void set_fax(const fax_settings& settings) { change(fax_, settings); }
    const sound_settings& sound() const { return sound_; }
    void set_sound(const sound_settings& settings) { change(sound_, settings); }
    const network_settings& network() const { return network_; }
    void set_network(const network_settings& settings) { change(network_, settings); }
    /** Copy, scan and fax settings are as at the start again. */
    void reset_settings();

    /** Addresses that a scan can be sent to. */
    const QStringList& scan_destinations() const { return scan_destinations_; }
    int received_faxes() const { return received_faxes_; }
    void set_received_faxes(int faxes) { change(received_faxes_, faxes); }

Q_SIGNALS:
    /** Anything that a screen may show has changed. */
    void changed();
    /** A step is over. */
    void stepped();

private:
    template <class VALUE> void change(VALUE& own, const VALUE& value) {
        own = value;
        Q_EMIT changed();
    }
    void add_job(machine_job job);
    void work();
    std::size_t tray_of(const machine_job& job) const;
    bool lacks_paper() const;

    int steps_ = 0;
    bool is_asleep_ = false;
    int originals_ = 3;
    int received_faxes_ = 0;
    job_list jobs_;
    std::vector<stored_document> documents_ = first_documents();
    std::optional<paper_jam> jam_;
    std::vector<paper_tray> trays_;
    std::vector<toner_bottle> toner_;
    copy_settings copy_;
    scan_settings scan_;
    fax_settings fax_;
    sound_settings sound_;
    network_settings network_;
    QStringList scan_destinations_;
};

} // namespace velarion

#endif
