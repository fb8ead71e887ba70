#include "observer_registrar.h"

#include "dvc_pnl_dec_communication.h"
#include "dvc_pnl_dec_facade.h"
#include "message_layer.h"
#include "signal_block.h"

#include <algorithm>
#include <chrono>
#include <thread>
#include <utility>

namespace velarion {

namespace {

constexpr int NO_ANSWER = -1;
constexpr long CHECK_MODE = 1;
constexpr std::chrono::milliseconds PAUSE_WITHOUT_ANSWER(100);

/** A single check costs less than the facade, which asks for a while before it gives up. */
int register_observer(dvc_pnl_dec_key_event_observer* observer) {
    if (bmc_mc_client::bmc_mc_check_facade(DVC_PNL_DEC_SERVICE_NAME, CHECK_MODE) == 0) {
        return NO_ANSWER;
    }
    return dvc_pnl_dec_facade::dvc_pnl_dec_get_instance()->dvc_pnl_dec_add_key_observer(observer);
}

} // namespace

observer_registrar::observer_registrar(refusal_hook refused)
    : refused_(std::move(refused)) {}

observer_registrar::ticket_number observer_registrar::ask_for(dvc_pnl_dec_key_event_observer* observer) {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (!is_started_) {
        start();
    }
    requests_.push_back({++last_ticket_, observer});
    changed_.notify_all();
    return last_ticket_;
}

void observer_registrar::begin_anew() {
    const std::lock_guard<std::mutex> lock(mutex_);
    ++round_;
    answered_ = 0;
    changed_.notify_all();
}

void observer_registrar::withdraw(ticket_number ticket) {
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto found =
        std::find_if(requests_.begin(), requests_.end(),
                     [ticket](const observer_request& request) { return request.ticket == ticket; });
    if (found != requests_.end()) {
        answered_ -= found - requests_.begin() < static_cast<std::ptrdiff_t>(answered_) ? 1U : 0U;
        requests_.erase(found);
    }
}

void observer_registrar::end() {
    const std::lock_guard<std::mutex> lock(mutex_);
    is_ending_ = true;
    changed_.notify_all();
}

/** Nobody joins the thread, which the service may keep for seconds: it keeps this object instead. */
void observer_registrar::start() {
    const signal_block block;
    std::thread([self = shared_from_this()] { self->run(); }).detach();
    is_started_ = true;
}

void observer_registrar::run() {
    std::unique_lock<std::mutex> lock(mutex_);
    while (!is_ending_) {
        if (answered_ == requests_.size()) {
            changed_.wait(lock);
            continue;
        }
        const observer_request request = requests_[answered_];
        const std::uint64_t round = round_;
        lock.unlock();
        const int result = register_observer(request.observer);
        lock.lock();
        if (!take_result(request, round, result)) {
            changed_.wait_for(lock, PAUSE_WITHOUT_ANSWER);
        }
    }
}

/** With the mutex held, so that nobody is told after end(). @return whether the next one may be asked for */
bool observer_registrar::take_result(const observer_request& request, std::uint64_t round, int result) {
    if (is_ending_) {
        return true;
    }
    if (result == NO_ANSWER) {
        answered_ = 0;
        return false;
    }
    const bool is_wanted =
        round == round_ && answered_ < requests_.size() && requests_[answered_].ticket == request.ticket;
    if (is_wanted) {
        ++answered_;
    }
    if (is_wanted && result != 0) {
        refused_(request.ticket, result);
    }
    return true;
}

} // namespace velarion
