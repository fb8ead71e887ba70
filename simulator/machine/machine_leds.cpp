#include "machine_leds.h"

#include "machine_state.h"

#include <algorithm>

namespace velarion {

std::array<DVC_PNL_DEC_LED_STATUS_ID, LED_COUNT> leds_of(const machine_state& machine) {
    std::array<DVC_PNL_DEC_LED_STATUS_ID, LED_COUNT> leds;
    leds.fill(DVC_PNL_DEC_LED_STATUS_OFF);
    const machine_condition now = machine.condition();
    const machine_job* job = machine.current_job();
    const bool is_faulty = now == machine_condition::JAMMED || now == machine_condition::NO_PAPER;
    const bool is_busy = now == machine_condition::READING || now == machine_condition::PRINTING ||
                         now == machine_condition::SENDING;
    const bool lacks_toner = std::any_of(machine.toner().begin(), machine.toner().end(),
                                         [](const toner_bottle& bottle) { return bottle.percent == 0; });
    const auto light = [&leds](DVC_PNL_DEC_LED_ID led, bool is_lit,
                               DVC_PNL_DEC_LED_STATUS_ID status = DVC_PNL_DEC_LED_STATUS_ON) {
        if (is_lit) {
            leds[static_cast<std::size_t>(led)] = status;
        }
    };
    light(DVC_PNL_DEC_LED_MAIN_POWER, true);
    light(DVC_PNL_DEC_LED_ENERGY_SAVER, now == machine_condition::ASLEEP);
    light(DVC_PNL_DEC_LED_START, now == machine_condition::READY || now == machine_condition::PAUSED);
    light(DVC_PNL_DEC_LED_START, is_busy, DVC_PNL_DEC_LED_STATUS_BLINK_SLOW);
    light(DVC_PNL_DEC_LED_STOP, is_busy);
    light(DVC_PNL_DEC_LED_DATA_IN, machine.received_faxes() > 0);
    light(DVC_PNL_DEC_LED_DATA_IN, now == machine_condition::READING, DVC_PNL_DEC_LED_STATUS_BLINK_FAST);
    light(DVC_PNL_DEC_LED_ALERT, lacks_toner);
    light(DVC_PNL_DEC_LED_ALERT, is_faulty, DVC_PNL_DEC_LED_STATUS_BLINK_SLOW);
    light(DVC_PNL_DEC_LED_FAX, machine.received_faxes() > 0);
    light(DVC_PNL_DEC_LED_FAX, is_busy && job->kind == job_kind::FAX, DVC_PNL_DEC_LED_STATUS_BLINK_SLOW);
    return leds;
}

} // namespace velarion
