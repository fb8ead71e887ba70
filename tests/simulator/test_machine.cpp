#include "machine_state.h"

#include <gtest/gtest.h>

namespace velarion {
namespace {

void work(machine_state& machine, int steps) {
    for (int i = 0; i < steps; ++i) {
        machine.step();
    }
}

job_state newest(const machine_state& machine) {
    return machine.jobs().back().state;
}

TEST(machine, a_second_job_waits_until_the_first_is_over) {
    machine_state machine;
    EXPECT_FALSE(machine.start_fax()); // lacks a number
    ASSERT_TRUE(machine.start_copy());
    const std::size_t first = machine.jobs().size() - 1;
    machine.set_fax({QStringLiteral("0123"), fax_resolution::FINE});
    ASSERT_TRUE(machine.start_fax());
    EXPECT_EQ(newest(machine), job_state::WAITING);
    work(machine, machine.jobs()[first].all_steps() - 1);
    EXPECT_EQ(machine.jobs()[first].state, job_state::RUNNING);
    work(machine, 1);
    EXPECT_EQ(machine.jobs()[first].state, job_state::COMPLETED);
    EXPECT_EQ(machine.current_job(), &machine.jobs().back());
    machine.pause_job();
    work(machine, 100);
    EXPECT_EQ(machine.current_job()->steps, 0);
    machine.cancel_job();
    EXPECT_EQ(newest(machine), job_state::CANCELED);
    EXPECT_EQ(machine.condition(), machine_condition::READY);
}

TEST(machine, a_fault_holds_the_job_and_lights_the_alert) {
    machine_state machine;
    machine.start_copy();
    work(machine, 5);
    const jam_place& place = jam_places().front();
    machine.raise_jam(place);
    work(machine, 50);
    EXPECT_EQ(machine.current_job()->steps, 5);
    EXPECT_EQ(machine.leds()[DVC_PNL_DEC_LED_ALERT], DVC_PNL_DEC_LED_STATUS_BLINK_SLOW);
    EXPECT_EQ(machine.leds()[DVC_PNL_DEC_LED_START], DVC_PNL_DEC_LED_STATUS_OFF);
    for (std::size_t i = 0; i < place.steps.size(); ++i) {
        EXPECT_TRUE(machine.jam().has_value()) << i;
        machine.do_jam_step();
    }
    EXPECT_FALSE(machine.jam().has_value());
    work(machine, 1);
    EXPECT_EQ(machine.current_job()->steps, 6);
    EXPECT_EQ(machine.leds()[DVC_PNL_DEC_LED_ALERT], DVC_PNL_DEC_LED_STATUS_OFF);
}

} // namespace
} // namespace velarion
