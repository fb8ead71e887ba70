#include "dvc_pnl_dec_types.h"
#include "led_board.h"

#include <gtest/gtest.h>

namespace {

using namespace velarion;

constexpr std::int64_t START = 1000;
constexpr std::int32_t ALERT = DVC_PNL_DEC_LED_ALERT;
constexpr std::int32_t PRINT_SERVICE = DVC_PNL_DEC_LED_PRINT_SERVICE;
constexpr std::int32_t OFF = DVC_PNL_DEC_LED_STATUS_OFF;
constexpr std::int32_t ON = DVC_PNL_DEC_LED_STATUS_ON;
constexpr std::int32_t SLOW = DVC_PNL_DEC_LED_STATUS_BLINK_SLOW;
constexpr std::int32_t FAST = DVC_PNL_DEC_LED_STATUS_BLINK_FAST;
constexpr std::uint64_t HOST = 7;
constexpr std::int32_t TIMER = 3;

/** What an LED is to be at a time, and when the board wants to be called next. */
struct led_moment {
    std::int64_t after_start;
    std::int32_t status;
    bool is_lit;
    std::int64_t next_after_start; // -1: never
};

class test_led_board : public testing::Test {
protected:
    void expect_moments(std::int32_t led, const std::vector<led_moment>& moments) {
        for (const led_moment& moment : moments) {
            SCOPED_TRACE(moment.after_start);
            board_.advance(START + moment.after_start, changes_);
            EXPECT_EQ(board_.status(led), moment.status);
            EXPECT_EQ(board_.is_lit(led), moment.is_lit);
            EXPECT_EQ(board_.next_change(),
                      moment.next_after_start < 0 ? -1 : START + moment.next_after_start);
        }
    }

    led_board board_;
    std::vector<led_change> changes_;
};

TEST_F(test_led_board, blinking_follows_the_clock_and_jumps_with_it) {
    ASSERT_EQ(board_.set(ALERT, SLOW, START, changes_), DEVICE_OK);
    expect_moments(ALERT, {{0, SLOW, true, 500},
                           {499, SLOW, true, 500},
                           {500, SLOW, false, 1000},
                           {1000, SLOW, true, 1500},
                           {86400000 + 750, SLOW, false, 86400000 + 1000}});
    ASSERT_EQ(board_.set(ALERT, FAST, START + 86400001, changes_), DEVICE_OK);
    expect_moments(ALERT, {{86400001 + 125, FAST, false, 86400001 + 250}});
    ASSERT_EQ(board_.set(ALERT, ON, START + 86500000, changes_), DEVICE_OK);
    expect_moments(ALERT, {{86600000, ON, true, -1}});
}

TEST_F(test_led_board, the_timer_procedure_runs_its_cycles_and_ends_as_told) {
    ASSERT_EQ(board_.run_timer({HOST, TIMER, 100, 50, 2, SLOW}, START, changes_), DEVICE_OK);
    expect_moments(PRINT_SERVICE, {{0, LED_STATUS_TIMER, true, 100},
                                   {100, LED_STATUS_TIMER, false, 150},
                                   {150, LED_STATUS_TIMER, true, 250},
                                   {299, LED_STATUS_TIMER, false, 300},
                                   {300, SLOW, true, 800}, // it counts from the end of the last cycle
                                   {801, SLOW, false, 1300}});
    ASSERT_EQ(board_.run_timer({HOST, TIMER, 100, 50, 2, SLOW}, START + 2000, changes_), DEVICE_OK);
    expect_moments(PRINT_SERVICE, {{2000 + 300 + 700, SLOW, false, 2000 + 300 + 1000}}); // all at once
    ASSERT_EQ(board_.run_timer({HOST, TIMER, 60000, 60000, 0, OFF}, START + 4000, changes_), DEVICE_OK);
    expect_moments(PRINT_SERVICE, {{4000 + 120000LL * 1000000 + 1, LED_STATUS_TIMER, true, 120000064000}});
}

TEST_F(test_led_board, only_its_owner_stops_a_timer_procedure) {
    const struct {
        led_timer timer;
        device_result result;
        std::int32_t status;
    } rows[] = {
        {{HOST, TIMER, 0, 0, 0, ON}, DEVICE_NO_TIMER, OFF},
        {{HOST, TIMER, 100, 100, 0, ON}, DEVICE_OK, LED_STATUS_TIMER},
        {{HOST + 1, TIMER, 0, 0, 0, ON}, DEVICE_NO_TIMER, LED_STATUS_TIMER},
        {{HOST, TIMER + 1, 0, 0, 0, ON}, DEVICE_NO_TIMER, LED_STATUS_TIMER},
        {{HOST, TIMER, 0, 0, 0, ON}, DEVICE_OK, ON},
        {{HOST, TIMER, 100, 100, 0, ON}, DEVICE_OK, LED_STATUS_TIMER},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(board_.run_timer(row.timer, START, changes_), row.result);
        EXPECT_EQ(board_.status(PRINT_SERVICE), row.status);
    }
    board_.set_all(OFF, START, changes_); // ends it, whoever owns it
    EXPECT_EQ(board_.run_timer({HOST, TIMER, 0, 0, 0, ON}, START, changes_), DEVICE_NO_TIMER);
    EXPECT_EQ(board_.next_change(), -1);
}

} // namespace
