#include "observer_registry.h"

#include <algorithm>

namespace panel_device {

DEVICE_RESULT observer_registry::add(const KEY_OBSERVER& observer) {
    const auto is_of_connection = [&](const KEY_OBSERVER& other) {
        return other.connection == observer.connection;
    };
    const auto is_same = [&](const KEY_OBSERVER& other) {
        return is_of_connection(other) && other.number == observer.number;
    };
    if (std::any_of(observers_.begin(), observers_.end(), is_same)) {
        return DEVICE_OK;
    }
    if (std::count_if(observers_.begin(), observers_.end(), is_of_connection) >= MOST_OBSERVERS) {
        return DEVICE_TOO_MANY_OBSERVERS;
    }
    observers_.push_back(observer);
    return DEVICE_OK;
}

void observer_registry::forget(std::uint32_t connection) {
    const auto is_of_connection = [&](const KEY_OBSERVER& other) { return other.connection == connection; };
    observers_.erase(std::remove_if(observers_.begin(), observers_.end(), is_of_connection),
                     observers_.end());
}

} // namespace panel_device
