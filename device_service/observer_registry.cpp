#include "observer_registry.h"

#include <algorithm>

namespace velarion {

namespace {

/** Tells the observers of one owner from others. */
struct is_of {
    observer_owner owner;

    bool operator()(const key_observer& observer) const {
        return observer.owner.host == owner.host && observer.owner.connection == owner.connection;
    }
};

} // namespace

observer_owner owner_of(std::uint64_t host, std::uint32_t connection) {
    return {host, host == 0 ? connection : 0};
}

device_result observer_registry::add(const key_observer& observer) {
    const is_of is_of_owner = {observer.owner};
    const auto is_same = [&](const key_observer& other) {
        return is_of_owner(other) && other.number == observer.number;
    };
    if (std::any_of(observers_.begin(), observers_.end(), is_same)) {
        return DEVICE_OK;
    }
    if (std::count_if(observers_.begin(), observers_.end(), is_of_owner) >= MOST_OBSERVERS) {
        return DEVICE_TOO_MANY_OBSERVERS;
    }
    observers_.push_back(observer);
    return DEVICE_OK;
}

void observer_registry::forget(const observer_owner& owner) {
    observers_.erase(std::remove_if(observers_.begin(), observers_.end(), is_of{owner}), observers_.end());
}

} // namespace velarion
