#include "settings_store.h"

#include "at_c_edge.h"
#include "settings_database.h"

#include <atomic>
#include <cstdio>
#include <cstring>

using namespace velarion;

namespace {

void report_once(const std::string& fault) {
    static std::atomic<bool> is_reported{false};
    if (!is_reported.exchange(true)) {
        std::fprintf(stderr, "panel_platform: %s; using defaults\n", fault.c_str());
    }
}

template <typename NUMBER> void copy_as(std::uint32_t value, void* target) {
    const NUMBER number = static_cast<NUMBER>(value);
    std::memcpy(target, &number, sizeof number);
}

void copy_value(const device_setting& setting, void* target) {
    if (setting.width == 8) {
        copy_as<std::uint8_t>(setting.value, target);
    } else if (setting.width == 16) {
        copy_as<std::uint16_t>(setting.value, target);
    } else {
        copy_as<std::uint32_t>(setting.value, target);
    }
}

platform_code read_setting(std::uint32_t group, std::uint32_t item, void* value) {
    device_setting setting;
    std::string fault;
    const platform_code code = settings_database().read(group, item, setting, fault);
    if (code != PLATFORM_OK && code != PLATFORM_UNKNOWN_ITEM) {
        report_once(fault);
    }
    if (setting.width == 0) { // neither stored nor known
        return code;
    }
    copy_value(setting, value);
    return PLATFORM_OK;
}

platform_code read_attribute(int language_id, int attribute, char* text) {
    std::string found;
    std::string fault;
    const platform_code code = settings_database().get_attribute(language_id, attribute, found, fault);
    if (code == PLATFORM_OK) {
        std::memcpy(text, found.c_str(), found.size() + 1);
    } else if (code != PLATFORM_NOT_FOUND) {
        report_once(fault);
    }
    return code;
}

} // namespace

int ent_set_get_status(std::uint32_t group, std::uint32_t item, void* value) {
    return value ? at_c_edge([&] { return read_setting(group, item, value); }) : PLATFORM_INVALID_ARGUMENT;
}

int ent_set_getmessage(int language_id, int attribute, char* text) {
    return text ? at_c_edge([&] { return read_attribute(language_id, attribute, text); })
                : PLATFORM_INVALID_ARGUMENT;
}
