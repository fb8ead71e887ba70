#ifndef JOB_LIST_H
#define JOB_LIST_H

#include "machine_job.h"

#include <vector>

namespace velarion {

/** The jobs of the machine: one at a time is at work, the others wait their turn or are over. */
class job_list {
public:
    /** Holds the jobs of an earlier hour of the day. */
    job_list();

    /** The newest last. */
    const std::vector<machine_job>& all() const { return jobs_; }
    /** The job that runs or is paused, or null. */
    const machine_job* current() const;
    machine_job* current();

    /** Gives the job its number and puts it at the end; it begins when none is at work. */
    void add(machine_job job);
    /** @return whether the current job was in the state that it leaves */
    bool change_state(job_state from, job_state to);
    /** Ends the current job; the next one that waits begins. */
    void end_current(job_state how);

private:
    std::size_t current_place() const;
    void begin_next();

    std::vector<machine_job> jobs_;
};

} // namespace velarion

#endif
