#include "machine_job.h"

#include <QtGlobal>

namespace velarion {

namespace {

constexpr int READING_STEPS = 6; // for an original
constexpr int DIALING_STEPS = 20;
constexpr int PRINTING_STEPS = 5; // for a sheet
constexpr int SENDING_STEPS = 10; // for a page

int steps_before_output(const machine_job& job) {
    return job.originals * READING_STEPS + (job.kind == job_kind::FAX ? DIALING_STEPS : 0);
}

int steps_of_page(const machine_job& job) {
    return job.prints() ? PRINTING_STEPS : SENDING_STEPS;
}

} // namespace

job_phase machine_job::phase() const {
    if (steps < originals * READING_STEPS) {
        return job_phase::READING;
    }
    return steps < steps_before_output(*this) ? job_phase::DIALING : job_phase::OUTPUT;
}

int machine_job::all_pages() const {
    return prints() ? sheets_per_set * copies : originals;
}

int machine_job::all_steps() const {
    return steps_before_output(*this) + all_pages() * steps_of_page(*this);
}

int machine_job::percent() const {
    return steps * 100 / all_steps();
}

int machine_job::pages_done() const {
    return qMax(0, steps - steps_before_output(*this)) / steps_of_page(*this);
}

int machine_job::original_in_work() const {
    return qMin(originals, steps / READING_STEPS + 1);
}

int machine_job::set_in_work() const {
    return qMin(copies, pages_done() / sheets_per_set + 1);
}

} // namespace velarion
