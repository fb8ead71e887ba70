#ifndef OBSERVER_REGISTRY_H
#define OBSERVER_REGISTRY_H

#include "device_protocol.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace panel_device {

/** A key observer that a host registered. */
struct KEY_OBSERVER {
    std::uint32_t connection; ///< it is forgotten with this connection
    std::uint64_t host;
    std::uint32_t number;
};

/** The key observers of all hosts, in the order of their registration. */
class observer_registry {
public:
    /** Registers an observer; once more has no effect. @return DEVICE_OK, DEVICE_TOO_MANY_OBSERVERS */
    DEVICE_RESULT add(const KEY_OBSERVER& observer);
    /** Forgets the observers of a connection. */
    void forget(std::uint32_t connection);
    const std::vector<KEY_OBSERVER>& observers() const { return observers_; }

private:
    std::vector<KEY_OBSERVER> observers_;
};

/** A connection may register so many. */
inline constexpr std::ptrdiff_t MOST_OBSERVERS = 64;

} // namespace panel_device

#endif
