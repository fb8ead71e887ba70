#include "job_list.h"

#include <algorithm>

namespace velarion {

namespace {

/** Jobs of this morning. */
std::vector<machine_job> earlier_jobs() {
    const auto job = [](int number, job_kind kind, int originals, int copies, const char* destination,
                        const char* begun, job_state state) {
        machine_job made;
        made.number = number;
        made.kind = kind;
        made.originals = originals;
        made.copies = copies;
        made.sheets_per_set = originals;
        made.destination = QLatin1String(destination);
        made.begun = QLatin1String(begun);
        made.state = state;
        made.steps = state == job_state::COMPLETED ? made.all_steps() : 0;
        return made;
    };
    return {job(101, job_kind::COPY, 12, 2, "", "08:12", job_state::COMPLETED),
            job(102, job_kind::SCAN, 4, 1, "office@example.com", "08:40", job_state::COMPLETED),
            job(103, job_kind::FAX, 2, 1, "0123 456789", "09:05", job_state::CANCELED),
            job(104, job_kind::COPY, 1, 30, "", "09:31", job_state::COMPLETED)};
}

} // namespace

job_list::job_list()
    : jobs_(earlier_jobs()) {}

std::size_t job_list::current_place() const {
    const auto found = std::find_if(jobs_.begin(), jobs_.end(), [](const machine_job& job) {
        return job.state == job_state::RUNNING || job.state == job_state::PAUSED;
    });
    return static_cast<std::size_t>(found - jobs_.begin());
}

const machine_job* job_list::current() const {
    const std::size_t place = current_place();
    return place < jobs_.size() ? &jobs_[place] : nullptr;
}

machine_job* job_list::current() {
    const std::size_t place = current_place();
    return place < jobs_.size() ? &jobs_[place] : nullptr;
}

void job_list::add(machine_job job) {
    job.number = jobs_.back().number + 1;
    jobs_.push_back(std::move(job));
    begin_next();
}

bool job_list::change_state(job_state from, job_state to) {
    machine_job* job = current();
    if (!job || job->state != from) {
        return false;
    }
    job->state = to;
    return true;
}

void job_list::end_current(job_state how) {
    if (machine_job* job = current()) {
        job->state = how;
    }
    begin_next();
}

void job_list::begin_next() {
    if (current()) {
        return;
    }
    const auto waiting = std::find_if(jobs_.begin(), jobs_.end(),
                                      [](const machine_job& job) { return job.state == job_state::WAITING; });
    if (waiting != jobs_.end()) {
        waiting->state = job_state::RUNNING;
    }
}

} // namespace velarion
