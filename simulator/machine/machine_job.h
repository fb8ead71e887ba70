#ifndef MACHINE_JOB_H
#define MACHINE_JOB_H

#include <QString>

namespace velarion {

enum class job_kind { COPY, SCAN, FAX, PRINT };

enum class job_state { WAITING, RUNNING, PAUSED, COMPLETED, CANCELED };

/** What a job that has begun is about. */
enum class job_phase {
    READING, ///< its originals
    DIALING, ///< a fax alone
    OUTPUT   ///< printing its sheets or sending its pages
};

/** A job: what was asked for, and how far it is. It advances by steps of a tenth of a second. */
struct machine_job {
    int number = 0;
    job_kind kind = job_kind::COPY;
    int originals = 1;
    int copies = 1;
    int sheets_per_set = 1;
    int tray = 0;        ///< of a copy: number of its tray, 0: the first that has paper of the size
    QString destination; ///< of a scan or fax; of a print the document
    QString begun;       ///< time of day, "10:05"
    job_state state = job_state::WAITING;
    int steps = 0; ///< that it has worked

    /** Whether it puts out sheets of paper. */
    bool prints() const { return kind == job_kind::COPY || kind == job_kind::PRINT; }
    bool is_over() const { return state == job_state::COMPLETED || state == job_state::CANCELED; }
    job_phase phase() const;
    int all_steps() const;
    int percent() const;
    /** Sheets that a copy gives, or pages that are sent. */
    int all_pages() const;
    int pages_done() const;
    /** 1 to originals; of what is being read, the last one afterwards. */
    int original_in_work() const;
    /** 1 to copies; of what is being printed. */
    int set_in_work() const;
};

} // namespace velarion

#endif
