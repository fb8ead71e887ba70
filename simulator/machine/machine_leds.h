#ifndef MACHINE_LEDS_H
#define MACHINE_LEDS_H

#include "device_protocol.h"
#include "dvc_pnl_dec_types.h"

#include <array>

namespace velarion {

class machine_state;

/** What a machine wants each LED to show, by its number. */
std::array<DVC_PNL_DEC_LED_STATUS_ID, LED_COUNT> leds_of(const machine_state& machine);

} // namespace velarion

#endif
