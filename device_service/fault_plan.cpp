#include "fault_plan.h"

#include "service_log.h"

#include <csignal>

namespace velarion {

device_result fault_plan::set(std::int32_t kind, std::int32_t value, std::int32_t requests) {
    const bool is_delay_wrong = kind == FAULT_DELAY && (value < 0 || value > LONGEST_DELAY);
    const bool is_result_wrong = kind == FAULT_FAIL && value < 1;
    if (kind < FAULT_NONE || kind >= FAULT_KIND_COUNT || requests < 0 || is_delay_wrong || is_result_wrong) {
        return DEVICE_BAD_VALUE;
    }
    kind_ = static_cast<fault_kind>(kind);
    value_ = value;
    requests_ = requests;
    return DEVICE_OK;
}

fault_kind fault_plan::take() {
    const fault_kind kind = kind_;
    if (kind != FAULT_NONE && requests_ > 0 && --requests_ == 0) {
        kind_ = FAULT_NONE;
    }
    return kind;
}

[[noreturn]] void crash() {
    write_log(SERVICE_LOG_WARNING, "crashing, as ordered");
    for (;;) {
        std::raise(SIGKILL);
    }
}

} // namespace velarion
