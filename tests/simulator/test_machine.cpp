#include "machine_leds.h"
#include "machine_state.h"

#include <gtest/gtest.h>

namespace velarion {
namespace {

void work(machine_state& machine, int steps) {
    for (int i = 0; i < steps; ++i) {
        machine.step();
    }
}

TEST(machine, a_second_job_waits_until_the_first_is_over) {
    machine_state machine;
    EXPECT_FALSE(machine.start_fax()); // lacks a number
    ASSERT_TRUE(machine.start_copy());
    const std::size_t first = machine.jobs().size() - 1;
    machine.set_fax({QStringLiteral("0123"), fax_resolution::FINE});
    ASSERT_TRUE(machine.start_fax());
    EXPECT_EQ(machine.jobs().back().state, job_state::WAITING);
    work(machine, machine.jobs()[first].all_steps());
    EXPECT_EQ(machine.jobs()[first].state, job_state::COMPLETED);
    EXPECT_EQ(machine.current_job(), &machine.jobs().back());
    machine.cancel_job();
    EXPECT_EQ(machine.jobs().back().state, job_state::CANCELED);
}

TEST(machine, a_fault_holds_the_job_and_lights_the_alert) {
    machine_state machine;
    machine.start_copy();
    work(machine, 5);
    machine.raise_jam(jam_places().front());
    work(machine, 50);
    ASSERT_TRUE(machine.current_job());
    EXPECT_EQ(machine.current_job()->steps, 5);
    EXPECT_EQ(leds_of(machine)[DVC_PNL_DEC_LED_ALERT], DVC_PNL_DEC_LED_STATUS_BLINK_SLOW);
    EXPECT_EQ(leds_of(machine)[DVC_PNL_DEC_LED_START], DVC_PNL_DEC_LED_STATUS_OFF);
    for (std::size_t i = 0; i < jam_places().front().steps.size(); ++i) {
        EXPECT_TRUE(machine.jam().has_value()) << i;
        machine.do_jam_step();
    }
    EXPECT_FALSE(machine.jam().has_value());
    work(machine, 1);
    EXPECT_EQ(machine.current_job()->steps, 6);
}

} // namespace
} // namespace velarion
