#ifndef FAULT_PLAN_H
#define FAULT_PLAN_H

#include "device_protocol.h"

#include <cstdint>

namespace velarion {

/** The misbehaviour that was ordered, and for how many requests. */
class fault_plan {
public:
    /**
     * Replaces what was ordered before.
     *
     * @param value     FAULT_DELAY: milliseconds, 0 to LONGEST_DELAY; FAULT_FAIL: the result code, 1 or more
     * @param requests  how many it is for; 0: all until changed
     * @return DEVICE_OK, DEVICE_BAD_VALUE
     */
    device_result set(std::int32_t kind, std::int32_t value, std::int32_t requests);

    /** @return the misbehaviour for the request that is at hand; counts it */
    fault_kind take();

    fault_kind kind() const { return kind_; }
    std::int32_t value() const { return value_; }
    std::int32_t requests() const { return requests_; }

private:
    fault_kind kind_ = FAULT_NONE;
    std::int32_t value_ = 0; ///< stays valid for the request that take() counted last
    std::int32_t requests_ = 0;
};

/** Ends the service as if killed, as FAULT_CRASH and FAULT_CRASH_NOW order. */
[[noreturn]] void crash();

} // namespace velarion

#endif
