#include "dvc_pnl_dec_types.h"
#include "led_board.h"

#include <gtest/gtest.h>

namespace {

using namespace panel_device;
using namespace velarion;

const std::int64_t START = 1000;
const std::int32_t ALERT = DVC_PNL_DEC_LED_ALERT;
const std::int32_t PRINT_SERVICE = DVC_PNL_DEC_LED_PRINT_SERVICE;
const std::int32_t OFF = DVC_PNL_DEC_LED_STATUS_OFF;
const std::int32_t ON = DVC_PNL_DEC_LED_STATUS_ON;
const std::int32_t SLOW = DVC_PNL_DEC_LED_STATUS_BLINK_SLOW;
const std::int32_t FAST = DVC_PNL_DEC_LED_STATUS_BLINK_FAST;
const std::uint64_t HOST = 7;
const std::int32_t TIMER = 3;

/** What an LED is to be at a time, and when the board wants to be called next. */
struct MOMENT {
    std::int64_t after_start;
    std::int32_t status;
    bool is_lit;
    std::int64_t next_after_start; // -1: never
};

void expect_moments(led_board& board, std::int32_t led, const std::vector<MOMENT>& moments) {
    for (const MOMENT& moment : moments) {
        SCOPED_TRACE(moment.after_start);
        std::vector<LED_CHANGE> changes;
        board.advance(START + moment.after_start, changes);
        EXPECT_EQ(moment.status, board.status(led));
        EXPECT_EQ(moment.is_lit, board.is_lit(led));
        EXPECT_EQ(moment.next_after_start < 0 ? -1 : START + moment.next_after_start, board.next_change());
    }
}

TEST(test_led_board, blinking_follows_the_clock_and_jumps_with_it) {
    led_board board;
    std::vector<LED_CHANGE> changes;
    ASSERT_EQ(DEVICE_OK, board.set(ALERT, SLOW, START, changes));
    expect_moments(board, ALERT,
                   {{0, SLOW, true, 500},
                    {499, SLOW, true, 500},
                    {500, SLOW, false, 1000},
                    {1000, SLOW, true, 1500},
                    {86400000 + 750, SLOW, false, 86400000 + 1000}});
    ASSERT_EQ(DEVICE_OK, board.set(ALERT, FAST, START + 86400001, changes));
    expect_moments(board, ALERT, {{86400001 + 125, FAST, false, 86400001 + 250}});
    ASSERT_EQ(DEVICE_OK, board.set(ALERT, ON, START + 86500000, changes));
    expect_moments(board, ALERT, {{86600000, ON, true, -1}});
}

TEST(test_led_board, the_timer_procedure_runs_its_cycles_and_ends_as_told) {
    led_board board;
    std::vector<LED_CHANGE> changes;
    ASSERT_EQ(DEVICE_OK, board.run_timer({HOST, TIMER, 100, 50, 2, SLOW}, START, changes));
    expect_moments(board, PRINT_SERVICE,
                   {{0, LED_STATUS_TIMER, true, 100},
                    {100, LED_STATUS_TIMER, false, 150},
                    {150, LED_STATUS_TIMER, true, 250},
                    {299, LED_STATUS_TIMER, false, 300},
                    {300, SLOW, true, 800}, // the end status counts from the end of the last cycle
                    {801, SLOW, false, 1300}});
    ASSERT_EQ(DEVICE_OK, board.run_timer({HOST, TIMER, 100, 50, 2, SLOW}, START + 2000, changes));
    expect_moments(board, PRINT_SERVICE, {{2000 + 300 + 700, SLOW, false, 2000 + 300 + 1000}}); // all at once
    ASSERT_EQ(DEVICE_OK, board.run_timer({HOST, TIMER, 60000, 60000, 0, OFF}, START + 4000, changes));
    expect_moments(board, PRINT_SERVICE,
                   {{4000 + 120000LL * 1000000 + 1, LED_STATUS_TIMER, true, 120000064000}});
}

TEST(test_led_board, only_its_owner_stops_a_timer_procedure) {
    led_board board;
    std::vector<LED_CHANGE> changes;
    EXPECT_EQ(DEVICE_NO_TIMER, board.run_timer({HOST, TIMER, 0, 0, 0, ON}, START, changes));
    ASSERT_EQ(DEVICE_OK, board.run_timer({HOST, TIMER, 100, 100, 0, ON}, START, changes));
    EXPECT_EQ(DEVICE_NO_TIMER, board.run_timer({HOST + 1, TIMER, 0, 0, 0, ON}, START, changes));
    EXPECT_EQ(DEVICE_NO_TIMER, board.run_timer({HOST, TIMER + 1, 0, 0, 0, ON}, START, changes));
    EXPECT_EQ(LED_STATUS_TIMER, board.status(PRINT_SERVICE));
    EXPECT_EQ(DEVICE_OK, board.run_timer({HOST, TIMER, 0, 0, 0, ON}, START, changes));
    EXPECT_EQ(ON, board.status(PRINT_SERVICE));
    ASSERT_EQ(DEVICE_OK, board.run_timer({HOST, TIMER, 100, 100, 0, ON}, START, changes));
    board.set_all(OFF, START, changes); // ends it, whoever owns it
    EXPECT_EQ(DEVICE_NO_TIMER, board.run_timer({HOST, TIMER, 0, 0, 0, ON}, START, changes));
    EXPECT_EQ(-1, board.next_change());
}

TEST(test_led_board, what_is_out_of_range_changes_nothing) {
    led_board board;
    std::vector<LED_CHANGE> changes;
    EXPECT_EQ(DEVICE_UNKNOWN_LED, board.set(-1, ON, START, changes));
    EXPECT_EQ(DEVICE_UNKNOWN_LED, board.set(LED_COUNT, ON, START, changes));
    EXPECT_EQ(DEVICE_UNKNOWN_STATUS, board.set(ALERT, LED_STATUS_TIMER, START, changes));
    EXPECT_EQ(DEVICE_UNKNOWN_STATUS, board.set(ALERT, -1, START, changes));
    const struct {
        LED_TIMER timer;
        DEVICE_RESULT result;
    } rows[] = {
        {{HOST, TIMER, 9, 10, 1, ON}, DEVICE_BAD_VALUE},
        {{HOST, TIMER, 10, 9, 1, ON}, DEVICE_BAD_VALUE},
        {{HOST, TIMER, -1, 10, 1, ON}, DEVICE_BAD_VALUE},
        {{HOST, TIMER, 60001, 10, 1, ON}, DEVICE_BAD_VALUE},
        {{HOST, TIMER, 10, INT32_MAX, 1, ON}, DEVICE_BAD_VALUE},
        {{HOST, TIMER, 10, 10, -1, ON}, DEVICE_BAD_VALUE},
        {{HOST, TIMER, 10, 10, 1000001, ON}, DEVICE_BAD_VALUE},
        {{HOST, TIMER, 10, 10, 1, LED_STATUS_TIMER}, DEVICE_UNKNOWN_STATUS},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.result, board.run_timer(row.timer, START, changes));
    }
    EXPECT_TRUE(changes.empty());
    EXPECT_EQ(-1, board.next_change());
}

TEST(test_led_board, edges_and_changes_are_told_apart) {
    led_board board;
    std::vector<LED_CHANGE> changes;
    ASSERT_EQ(DEVICE_OK, board.set(ALERT, SLOW, START, changes));
    ASSERT_EQ(DEVICE_OK, board.run_timer({HOST, TIMER, 10, 10, 1, OFF}, START, changes));
    ASSERT_EQ(2U, changes.size());
    changes.clear();
    board.advance(START + 500, changes);
    ASSERT_EQ(2U, changes.size());
    EXPECT_EQ(ALERT, changes[0].led);
    EXPECT_TRUE(changes[0].is_edge);
    EXPECT_EQ(PRINT_SERVICE, changes[1].led); // its end is a change of status
    EXPECT_FALSE(changes[1].is_edge);
    changes.clear();
    board.advance(START + 500, changes);
    EXPECT_TRUE(changes.empty());
}

} // namespace
