#ifndef OBSERVER_REGISTRY_H
#define OBSERVER_REGISTRY_H

#include "device_protocol.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace panel_device {

/**
 * Whose an observer is: a host's, on whichever of its connections; a connection's where that has no host
 * number.
 */
struct OBSERVER_OWNER {
    std::uint64_t host;       ///< 0: none
    std::uint32_t connection; ///< 0 where there is a host
};

/** A key observer that was registered. */
struct KEY_OBSERVER {
    OBSERVER_OWNER owner;
    std::uint32_t number;
};

/** The key observers of all hosts, in the order of their registration. */
class observer_registry {
public:
    /** Registers an observer; once more has no effect. @return DEVICE_OK, DEVICE_TOO_MANY_OBSERVERS */
    DEVICE_RESULT add(const KEY_OBSERVER& observer);
    /** Forgets the observers of an owner. */
    void forget(const OBSERVER_OWNER& owner);
    const std::vector<KEY_OBSERVER>& observers() const { return observers_; }

private:
    std::vector<KEY_OBSERVER> observers_;
};

/** An owner may register so many. */
inline constexpr std::ptrdiff_t MOST_OBSERVERS = 64;

} // namespace panel_device

#endif
