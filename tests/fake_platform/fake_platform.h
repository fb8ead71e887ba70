#ifndef FAKE_PLATFORM_H
#define FAKE_PLATFORM_H

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <mutex>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

/** Code of a scripted failure that names none, and of whatever the test did not provide. */
constexpr int FAKE_FAILURE = 0x0FA1;

/**
 * One call of the platform.
 *
 * function: its name; constructors and destructors are "OSW_Guard" and "~OSW_Guard", members of the message
 *           layer "bmc_mc_client", "~bmc_mc_client", "facade_template", "~facade_template", "dispatch",
 *           "bmc_mc_check_facade" and "bmc_mc_send_sync_message"
 * numbers:  its integer arguments in their order, handles and pointers left out; a timer: its kind and its
 *           id; a sent message: mode, function id, request length, reply capacity; dispatch: none
 * text:     its file, library, symbol or service name; a trace: its text as formatted
 * bytes:    exactly the bytes handed over for sending
 * format:   a trace: its format, without the arguments
 */
struct fake_call {
    std::string function;
    std::vector<std::int64_t> numbers;
    std::string text;
    std::string bytes;
    std::string format = {};
};

/**
 * Takes the platform's place in unit tests: records every call and answers what the test scripted.
 *
 * Without a script: settings, attributes, files and libraries do not exist (FAKE_FAILURE), everything else
 * succeeds, services are ready at once, a sent message gets no reply bytes, and sleeping takes no time.
 * Locks are real; the critical section is recorded when it is asked for, a mutex when it is held. Any thread
 * may call the platform, but no other one while the test calls what is here, but for wait_for_calls().
 */
class fake_platform {
public:
    /** Forgets calls, scripts, files and open handles; timers count from 1 again. */
    void reset() { state_ = STATE(); }

    std::vector<fake_call> calls() const { return state_.calls; }
    std::vector<fake_call> calls_of(const std::string& function) const;
    std::size_t count(const std::string& function) const { return calls_of(function).size(); }
    void forget_calls() { state_.calls.clear(); }
    /** Waits, a minute at most, until other threads have made so many calls. @return whether they have */
    bool wait_for_calls(const std::string& function, std::size_t count);

    /** Lets a function that returns a result fail, without effect, in all calls from the next one on. */
    void fail(const std::string& function, int code = FAKE_FAILURE) { state_.failures[function] = code; }

    /** @param width  bits: 8, 16 or 32; a read writes exactly so many */
    void set_setting(std::uint32_t group, std::uint32_t item, int width, std::uint32_t value) {
        state_.settings[{group, item}] = {width, value, 0};
    }
    void fail_setting(std::uint32_t group, std::uint32_t item, int code = FAKE_FAILURE) {
        state_.settings[{group, item}] = {0, 0, code};
    }
    void set_attribute(int language_id, int attribute, const std::string& text) {
        state_.attributes[{language_id, attribute}] = text;
    }

    /** Provides a library. @param result,has_handle  what loading it answers */
    void add_library(const std::string& path, int result = 0, bool has_handle = true);
    /** Provides a symbol, and its library. @param address  an object or a function without captures */
    template <typename TARGET>
    void add_symbol(const std::string& path, const std::string& name, TARGET* address) {
        state_.libraries[path].symbols[name] = reinterpret_cast<void*>(address);
    }

    void set_file(int area, int group, const std::string& name, const std::string& bytes) {
        state_.files[{area, group, name}] = bytes;
    }
    /** @param bytes  receives the file as last closed. @return whether it exists */
    bool get_file(int area, int group, const std::string& name, std::string& bytes) const;
    /** Lets dvu_dio_stat() report this size for every file. */
    void set_stat_size(std::uint32_t size) { state_.stat_size = size; }
    /** Lets each dvu_dio_fread() deliver at most so many bytes. */
    void set_read_limit(std::uint32_t bytes) { state_.read_limit = bytes; }
    /** Lets each dvu_dio_fread() report this count, whatever it delivered. */
    void set_read_count(std::uint32_t count) { state_.read_count = count; }
    std::size_t open_file_count() const { return state_.open_files.size(); }

    /** Lets the first @p checks readiness checks answer no, and all later ones yes. */
    void set_ready_after(unsigned long checks) { state_.checks_until_ready = checks; }
    /**
     * Adds an answer to a sent message; the last one added answers all later messages too.
     * @param bytes  copied as far as they fit, and only when @p result is 0
     */
    void add_reply(const std::string& bytes, long result = 0) { state_.replies.push_back({bytes, result}); }

private:
    friend struct fake_platform_call;
    using FILE_KEY = std::tuple<int, int, std::string>;

    struct SETTING {
        int width;
        std::uint32_t value;
        int code;
    };
    struct LIBRARY {
        int result = 0;
        bool has_handle = true;
        std::map<std::string, void*> symbols;
    };
    struct OPEN_FILE {
        FILE_KEY key;
        int mode;
        std::string bytes;
        std::size_t position;
    };
    struct REPLY {
        std::string bytes;
        long result;
    };
    /** All that reset() puts back. */
    struct STATE {
        std::vector<fake_call> calls;
        std::map<std::string, int> failures;
        std::map<std::pair<std::uint32_t, std::uint32_t>, SETTING> settings;
        std::map<std::pair<int, int>, std::string> attributes;
        std::map<std::string, LIBRARY> libraries;
        std::map<FILE_KEY, std::string> files;
        std::map<std::uintptr_t, OPEN_FILE> open_files;
        std::int64_t stat_size = -1; // negative: the real one
        std::uint32_t read_limit = UINT32_MAX;
        std::int64_t read_count = -1; // negative: the real one
        unsigned long checks_until_ready = 0;
        std::deque<REPLY> replies;
        std::uint32_t last_timer_id = 0;
    };

    std::mutex mutex_; // of the calls of the platform
    std::condition_variable called_;
    STATE state_;
    std::uintptr_t last_handle_ = 0; // survives reset(), so that old handles stay invalid
};

/** @return the one fake platform of the process, never destroyed */
fake_platform& fake_platform_instance();

#endif
