#ifndef OBSERVER_REGISTRY_H
#define OBSERVER_REGISTRY_H

#include "device_protocol.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace velarion {

/**
 * Whose an observer is: a host's, on whichever of its connections; a connection's where that has no host
 * number.
 */
struct observer_owner {
    std::uint64_t host;       ///< 0: none
    std::uint32_t connection; ///< 0 where there is a host
};

/** @param host  number of the host that sent something on the connection; 0: it has none */
observer_owner owner_of(std::uint64_t host, std::uint32_t connection);

/** A key observer that was registered. */
struct key_observer {
    observer_owner owner;
    std::uint32_t number;
};

/** The key observers of all hosts, in the order of their registration. */
class observer_registry {
public:
    /** Registers an observer; once more has no effect. @return DEVICE_OK, DEVICE_TOO_MANY_OBSERVERS */
    device_result add(const key_observer& observer);
    /** Forgets the observers of an owner. */
    void forget(const observer_owner& owner);
    const std::vector<key_observer>& observers() const { return observers_; }

private:
    std::vector<key_observer> observers_;
};

/** An owner may register so many. */
inline constexpr std::ptrdiff_t MOST_OBSERVERS = 64;

} // namespace velarion

#endif
