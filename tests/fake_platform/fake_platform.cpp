#include "fake_platform.h"

#include <algorithm>
#include <iterator>

using lock_guard = std::lock_guard<std::mutex>;

fake_platform& fake_platform_instance() {
    static fake_platform* const instance = new fake_platform;
    return *instance;
}

void fake_platform::reset() {
    const lock_guard lock(mutex_);
    state_ = STATE();
}

std::vector<FAKE_CALL> fake_platform::calls() const {
    const lock_guard lock(mutex_);
    return state_.calls;
}

std::vector<FAKE_CALL> fake_platform::calls_of(const std::string& function) const {
    const lock_guard lock(mutex_);
    std::vector<FAKE_CALL> found;
    std::copy_if(state_.calls.begin(), state_.calls.end(), std::back_inserter(found),
                 [&](const FAKE_CALL& call) { return call.function == function; });
    return found;
}

std::size_t fake_platform::count(const std::string& function) const {
    return calls_of(function).size();
}

void fake_platform::forget_calls() {
    const lock_guard lock(mutex_);
    state_.calls.clear();
}

void fake_platform::fail(const std::string& function, int code) {
    const lock_guard lock(mutex_);
    state_.failures[function] = code;
}

void fake_platform::set_setting(std::uint32_t group, std::uint32_t item, int width, std::uint32_t value) {
    const lock_guard lock(mutex_);
    state_.settings[{group, item}] = {width, value, 0};
}

void fake_platform::fail_setting(std::uint32_t group, std::uint32_t item, int code) {
    const lock_guard lock(mutex_);
    state_.settings[{group, item}] = {0, 0, code};
}

void fake_platform::set_attribute(int language_id, int attribute, const std::string& text) {
    const lock_guard lock(mutex_);
    state_.attributes[{language_id, attribute}] = text;
}

void fake_platform::add_library(const std::string& path, int result, bool has_handle) {
    const lock_guard lock(mutex_);
    LIBRARY& library = state_.libraries[path];
    library.result = result;
    library.has_handle = has_handle;
}

void fake_platform::add_symbol_address(const std::string& path, const std::string& name, void* address) {
    const lock_guard lock(mutex_);
    const auto added = state_.libraries.insert({path, {0, true, {}}});
    added.first->second.symbols[name] = address;
}

void fake_platform::set_file(int area, int group, const std::string& name, const std::string& bytes) {
    const lock_guard lock(mutex_);
    state_.files[{area, group, name}] = bytes;
}

bool fake_platform::get_file(int area, int group, const std::string& name, std::string& bytes) const {
    const lock_guard lock(mutex_);
    const auto found = state_.files.find({area, group, name});
    if (found == state_.files.end()) {
        return false;
    }
    bytes = found->second;
    return true;
}

void fake_platform::set_stat_size(std::uint32_t size) {
    const lock_guard lock(mutex_);
    state_.stat_size = size;
}

void fake_platform::set_read_limit(std::uint32_t bytes) {
    const lock_guard lock(mutex_);
    state_.read_limit = bytes;
}

void fake_platform::set_read_count(std::uint32_t count) {
    const lock_guard lock(mutex_);
    state_.read_count = count;
}

std::size_t fake_platform::open_file_count() const {
    const lock_guard lock(mutex_);
    return state_.open_files.size();
}

void fake_platform::set_ready_after(unsigned long checks) {
    const lock_guard lock(mutex_);
    state_.checks_until_ready = checks;
}

void fake_platform::add_reply(const std::string& bytes, long result) {
    const lock_guard lock(mutex_);
    state_.replies.push_back({bytes, result});
}
