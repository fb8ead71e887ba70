#include "led_sender.h"

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

} // namespace

led_sender::led_sender(result_hook hook)
    : hook_(std::move(hook)) {
    wanted_.fill(NONE);
    sent_.fill(NONE);
}

void led_sender::want(int led, int status) {
    if (led < 0 || led >= LED_COUNT) {
        return;
    }
    const std::lock_guard<std::mutex> lock(mutex_);
    wanted_[static_cast<std::size_t>(led)] = status;
    if (!is_started_) {
        start();
    }
    changed_.notify_all();
}

void led_sender::begin_anew() {
    const std::lock_guard<std::mutex> lock(mutex_);
    ++round_;
    sent_.fill(NONE);
    changed_.notify_all();
}

void led_sender::end() {
    const std::lock_guard<std::mutex> lock(mutex_);
    is_ending_ = true;
    changed_.notify_all();
}

/** Nobody joins the thread, which the service may keep for seconds: it keeps this object instead. */
void led_sender::start() {
    const signal_block block;
    std::thread([self = shared_from_this()] { self->run(); }).detach();
    is_started_ = true;
}

void led_sender::run() {
    std::unique_lock<std::mutex> lock(mutex_);
    while (!is_ending_) {
        setting next{};
        if (!find_setting(next)) {
            changed_.wait(lock);
            continue;
        }
        const std::uint64_t round = round_;
        lock.unlock();
        const auto begin = std::chrono::steady_clock::now();
        const int result = send(next);
        const auto time = std::chrono::steady_clock::now() - begin;
        lock.lock();
        const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(time).count();
        if (!take_result(next, round, result, static_cast<int>(ms))) {
            changed_.wait_for(lock, PAUSE_WITHOUT_ANSWER);
        }
    }
}

/** Where all LEDs are to be on or off, one request does for those that are not. */
bool led_sender::find_setting(setting& next) const {
    int different = 0;
    for (int led = 0; led < LED_COUNT; ++led) {
        const auto place = static_cast<std::size_t>(led);
        if (wanted_[place] != sent_[place] && wanted_[place] != NONE && different++ == 0) {
            next = {led, wanted_[place]};
        }
    }
    const auto is_next = [&next](int status) { return status == next.status; };
    const bool is_simple =
        next.status == DVC_PNL_DEC_LED_STATUS_ON || next.status == DVC_PNL_DEC_LED_STATUS_OFF;
    if (different > 1 && is_simple && std::all_of(wanted_.begin(), wanted_.end(), is_next)) {
        next.led = ALL;
    }
    return different > 0;
}

/** A single check costs less than the facade, which asks for a while before it gives up. */
int led_sender::send(const setting& next) {
    if (bmc_mc_client::bmc_mc_check_facade(DVC_PNL_DEC_SERVICE_NAME, CHECK_MODE) == 0) {
        return NO_ANSWER;
    }
    dvc_pnl_dec_facade& facade = *dvc_pnl_dec_facade::dvc_pnl_dec_get_instance();
    if (next.led == ALL) {
        return next.status == DVC_PNL_DEC_LED_STATUS_ON ? facade.dvc_pnl_dec_set_all_led_on()
                                                        : facade.dvc_pnl_dec_set_all_led_off();
    }
    return facade.dvc_pnl_dec_set_led_status(static_cast<DVC_PNL_DEC_LED_ID>(next.led),
                                             static_cast<DVC_PNL_DEC_LED_STATUS_ID>(next.status));
}

/** With the mutex held, so that nobody is told after end(). @return whether the next one may be sent */
bool led_sender::take_result(const setting& sent, std::uint64_t round, int result, int ms) {
    if (is_ending_) {
        return true;
    }
    hook_(result, ms);
    if (result == NO_ANSWER) {
        return false;
    }
    if (round == round_ && sent.led == ALL) {
        sent_.fill(sent.status);
    } else if (round == round_) {
        sent_[static_cast<std::size_t>(sent.led)] = sent.status;
    }
    return true;
}

} // namespace velarion
