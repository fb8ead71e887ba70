#include "machine_state.h"

#include "hard_key.h"

#include <QTime>

#include <algorithm>

namespace velarion {

namespace {

constexpr int STEP_TIME = 100; // ms

int sheets_of(const copy_settings& settings, int originals) {
    switch (settings.sides) {
    case copy_sides::ONE_TO_TWO:
        return (originals + 1) / 2;
    case copy_sides::TWO_TO_ONE:
        return originals * 2;
    default:
        return originals;
    }
}

} // namespace

machine_state::machine_state()
    : trays_({{1, paper_size::A4, paper_kind::PLAIN, 410, 550},
              {2, paper_size::A3, paper_kind::PLAIN, 275, 550},
              {3, paper_size::A5, paper_kind::RECYCLED, 60, 550},
              {4, paper_size::B5, paper_kind::THICK, 0, 550},
              {BYPASS_TRAY, paper_size::A4, paper_kind::LETTERHEAD, 25, 100}})
    , toner_({{toner_color::BLACK, 62},
              {toner_color::CYAN, 38},
              {toner_color::MAGENTA, 9},
              {toner_color::YELLOW, 74}})
    , scan_destinations_({QStringLiteral("office@example.com"), QStringLiteral("accounts@example.com"),
                          QStringLiteral("//server.example/scans"),
                          QStringLiteral("//server.example/plans")}) {}

QString machine_state::clock() const {
    return QTime(10, 5).addMSecs(steps_ * STEP_TIME).toString(QStringLiteral("HH:mm"));
}

machine_condition machine_state::condition() const {
    if (is_asleep_) {
        return machine_condition::ASLEEP;
    }
    if (jam_) {
        return machine_condition::JAMMED;
    }
    const machine_job* job = current_job();
    if (!job) {
        return machine_condition::READY;
    }
    if (job->state == job_state::PAUSED) {
        return machine_condition::PAUSED;
    }
    if (job->phase() == job_phase::READING) {
        return machine_condition::READING;
    }
    if (!job->prints()) {
        return machine_condition::SENDING;
    }
    return lacks_paper() ? machine_condition::NO_PAPER : machine_condition::PRINTING;
}

void machine_state::take_key(int key) {
    switch (key) {
    case KEY_ENERGY_SAVER:
        set_asleep(!is_asleep_);
        break;
    case KEY_START:
        resume_job();
        break;
    case KEY_RESET:
        reset_settings();
        break;
    default:
        break;
    }
}

void machine_state::set_asleep(bool is_asleep) {
    const machine_job* job = current_job();
    if (!job || !is_asleep) { // a job keeps it awake
        is_asleep_ = is_asleep;
        Q_EMIT changed();
    }
}

void machine_state::add_job(machine_job job) {
    job.originals = job.kind == job_kind::PRINT ? 0 : originals_;
    job.begun = clock();
    jobs_.add(std::move(job));
    Q_EMIT changed();
}

bool machine_state::start_copy() {
    if (originals_ <= 0) {
        return false;
    }
    machine_job job;
    job.kind = job_kind::COPY;
    job.copies = copy_.copies;
    job.sheets_per_set = sheets_of(copy_, originals_);
    job.tray = copy_.tray;
    add_job(job);
    return true;
}

bool machine_state::start_scan() {
    if (originals_ <= 0 || scan_.destination < 0 || scan_.destination >= scan_destinations_.size()) {
        return false;
    }
    machine_job job;
    job.kind = job_kind::SCAN;
    job.destination = scan_destinations_[scan_.destination];
    add_job(job);
    return true;
}

bool machine_state::start_fax() {
    if (originals_ <= 0 || fax_.number.isEmpty()) {
        return false;
    }
    machine_job job;
    job.kind = job_kind::FAX;
    job.destination = fax_.number;
    add_job(job);
    return true;
}

bool machine_state::print_documents(const std::set<int>& numbers) {
    bool has_any = false;
    for (const stored_document& document : documents_) {
        if (numbers.count(document.number) != 0) {
            machine_job job;
            job.kind = job_kind::PRINT;
            job.sheets_per_set = document.pages;
            job.destination = document.name;
            add_job(job);
            has_any = true;
        }
    }
    return has_any;
}

void machine_state::delete_documents(const std::set<int>& numbers) {
    const auto is_named = [&numbers](const stored_document& document) {
        return numbers.count(document.number) != 0;
    };
    documents_.erase(std::remove_if(documents_.begin(), documents_.end(), is_named), documents_.end());
    Q_EMIT changed();
}

void machine_state::pause_job() {
    if (jobs_.change_state(job_state::RUNNING, job_state::PAUSED)) {
        Q_EMIT changed();
    }
}

void machine_state::resume_job() {
    if (jobs_.change_state(job_state::PAUSED, job_state::RUNNING)) {
        Q_EMIT changed();
    }
}

void machine_state::cancel_job() {
    if (jobs_.current()) {
        jobs_.end_current(job_state::CANCELED);
        Q_EMIT changed();
    }
}

void machine_state::raise_jam(const jam_place& place) {
    jam_ = paper_jam{&place};
    is_asleep_ = false;
    Q_EMIT changed();
}

void machine_state::do_jam_step() {
    if (jam_ && ++jam_->step >= static_cast<int>(jam_->place->steps.size())) {
        jam_.reset();
    }
    Q_EMIT changed();
}

void machine_state::undo_jam_step() {
    if (jam_ && jam_->step > 0) {
        --jam_->step;
        Q_EMIT changed();
    }
}

void machine_state::clear_jam() {
    jam_.reset();
    Q_EMIT changed();
}

/** @return the place of the tray, or the number of trays when none has paper for the job */
std::size_t machine_state::tray_of(const machine_job& job) const {
    const auto has_paper = [&job](const paper_tray& tray) {
        return job.tray == 0 ? tray.size == paper_size::A4 && tray.sheets > 0
                             : tray.number == job.tray && tray.sheets > 0;
    };
    const auto found = std::find_if(trays_.begin(), trays_.end(), has_paper);
    return static_cast<std::size_t>(found - trays_.begin());
}

bool machine_state::lacks_paper() const {
    const machine_job* job = current_job();
    return job && job->prints() && tray_of(*job) == trays_.size();
}

void machine_state::set_tray(const paper_tray& tray) {
    for (paper_tray& own : trays_) {
        if (own.number == tray.number) {
            own = tray;
        }
    }
    Q_EMIT changed();
}

void machine_state::set_toner(toner_color color, int percent) {
    for (toner_bottle& bottle : toner_) {
        if (bottle.color == color) {
            bottle.percent = qBound(0, percent, 100);
        }
    }
    Q_EMIT changed();
}

void machine_state::reset_settings() {
    copy_ = {};
    scan_ = {};
    fax_ = {};
    Q_EMIT changed();
}

void machine_state::step() {
    ++steps_;
    const machine_condition now = condition();
    if (now == machine_condition::READING || now == machine_condition::PRINTING ||
        now == machine_condition::SENDING) {
        work();
        Q_EMIT changed();
    }
    Q_EMIT stepped();
}

void machine_state::work() {
    machine_job& job = *jobs_.current();
    const int pages_before = job.pages_done();
    ++job.steps;
    if (job.prints() && job.pages_done() > pages_before) {
        const std::size_t tray = tray_of(job);
        if (tray < trays_.size()) {
            --trays_[tray].sheets;
        }
    }
    if (job.steps >= job.all_steps()) {
        jobs_.end_current(job_state::COMPLETED);
    }
}

} // namespace velarion
