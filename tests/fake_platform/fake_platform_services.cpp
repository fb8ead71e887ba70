#include "fake_platform.h"

#include "data_file_store.h"
#include "message_layer.h"
#include "osw.h"
#include "settings_store.h"
#include "trace.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <semaphore.h>
#include <utility>

/** The platform's side of the fake: locked access to its script for the time of one call. */
struct fake_platform_services {
    using STATE = fake_platform::STATE;
    using SETTING = fake_platform::SETTING;
    using LIBRARY = fake_platform::LIBRARY;
    using OPEN_FILE = fake_platform::OPEN_FILE;

    explicit fake_platform_services(FAKE_CALL call)
        : lock(fake_platform_instance().mutex_)
        , state(fake_platform_instance().state_) {
        const auto failure = state.failures.find(call.function);
        code = failure == state.failures.end() ? 0 : failure->second;
        state.calls.push_back(std::move(call));
    }

    void* new_handle() const { return reinterpret_cast<void*>(++fake_platform_instance().last_handle_); }

    OPEN_FILE* open_file(DVU_DIO_HANDLE handle, int mode) {
        const auto found = state.open_files.find(reinterpret_cast<std::uintptr_t>(handle));
        return found != state.open_files.end() && found->second.mode == mode ? &found->second : nullptr;
    }

    const std::string* file(int area, int group, const char* name) {
        const auto found = state.files.find({area, group, name});
        return found == state.files.end() ? nullptr : &found->second;
    }

    std::lock_guard<std::mutex> lock;
    STATE& state;
    int code; // scripted failure of the called function, or 0
};

using services = fake_platform_services;

namespace {

const int MODE_READ = 0;
const int MODE_WRITE = 1;
const std::size_t LONGEST_TRACE = 16384; // with the terminating NUL; more is cut

std::string text_of(const char* text) {
    return text ? text : "";
}

std::string bytes_of(const void* data, std::size_t size) {
    return size > 0 ? std::string(static_cast<const char*>(data), size) : std::string();
}

void record(const char* function) {
    services call({function, {}, "", ""});
}

template <typename NUMBER> void copy_number(void* target, std::uint32_t value) {
    const NUMBER number = static_cast<NUMBER>(value);
    std::memcpy(target, &number, sizeof number);
}

std::recursive_mutex& critical_section() {
    static std::recursive_mutex* const section = new std::recursive_mutex;
    return *section;
}

} // namespace

// Settings store

int ent_set_get_status(std::uint32_t group, std::uint32_t item, void* value) {
    services call({"ent_set_get_status", {group, item}, "", ""});
    const auto found = call.state.settings.find({group, item});
    if (call.code != 0 || found == call.state.settings.end()) {
        return call.code != 0 ? call.code : FAKE_FAILURE;
    }
    const services::SETTING& setting = found->second;
    if (setting.code != 0) {
        return setting.code;
    }
    if (setting.width == 8) {
        copy_number<std::uint8_t>(value, setting.value);
    } else if (setting.width == 16) {
        copy_number<std::uint16_t>(value, setting.value);
    } else {
        copy_number<std::uint32_t>(value, setting.value);
    }
    return 0;
}

int ent_set_getmessage(int language_id, int attribute, char* text) {
    services call({"ent_set_getmessage", {language_id, attribute}, "", ""});
    const auto found = call.state.attributes.find({language_id, attribute});
    if (call.code != 0 || found == call.state.attributes.end()) {
        return call.code != 0 ? call.code : FAKE_FAILURE;
    }
    const std::string bytes = found->second.substr(0, ENT_SET_MESSAGE_SIZE - 1);
    std::memcpy(text, bytes.c_str(), bytes.size() + 1);
    return 0;
}

// Data-file store

int dvu_dio_fopen(int area, int group, const char* name, int mode, DVU_DIO_HANDLE* handle) {
    services call({"dvu_dio_fopen", {area, group, mode}, text_of(name), ""});
    if (call.code != 0) {
        return call.code;
    }
    const std::string* const file = call.file(area, group, name);
    if (mode == MODE_READ && !file) {
        return FAKE_FAILURE;
    }
    *handle = call.new_handle();
    call.state.open_files[reinterpret_cast<std::uintptr_t>(*handle)] = {
        {area, group, name}, mode, mode == MODE_READ ? *file : std::string(), 0};
    return 0;
}

int dvu_dio_fread(void* buffer, std::uint32_t size, DVU_DIO_HANDLE handle, std::uint32_t* count) {
    services call({"dvu_dio_fread", {size}, "", ""});
    *count = 0;
    services::OPEN_FILE* const file = call.open_file(handle, MODE_READ);
    if (call.code != 0 || !file) {
        return call.code != 0 ? call.code : FAKE_FAILURE;
    }
    const std::size_t delivered =
        file->bytes.copy(static_cast<char*>(buffer), std::min(size, call.state.read_limit), file->position);
    file->position += delivered;
    *count = call.state.read_count >= 0 ? static_cast<std::uint32_t>(call.state.read_count)
                                        : static_cast<std::uint32_t>(delivered);
    return 0;
}

int dvu_dio_fwrite(const void* data, std::uint32_t size, DVU_DIO_HANDLE handle, std::uint32_t* count) {
    const std::string bytes = bytes_of(data, size);
    services call({"dvu_dio_fwrite", {size}, "", bytes});
    *count = 0;
    services::OPEN_FILE* const file = call.open_file(handle, MODE_WRITE);
    if (call.code != 0 || !file) {
        return call.code != 0 ? call.code : FAKE_FAILURE;
    }
    file->bytes += bytes;
    *count = size;
    return 0;
}

int dvu_dio_fflush(DVU_DIO_HANDLE handle) {
    services call({"dvu_dio_fflush", {}, "", ""});
    const bool is_open = call.open_file(handle, MODE_READ) || call.open_file(handle, MODE_WRITE);
    return call.code != 0 || is_open ? call.code : FAKE_FAILURE;
}

int dvu_dio_fclose(DVU_DIO_HANDLE handle) {
    services call({"dvu_dio_fclose", {}, "", ""});
    const auto found = call.state.open_files.find(reinterpret_cast<std::uintptr_t>(handle));
    if (found == call.state.open_files.end()) {
        return call.code != 0 ? call.code : FAKE_FAILURE;
    }
    if (call.code == 0 && found->second.mode == MODE_WRITE) {
        call.state.files[found->second.key] = found->second.bytes;
    }
    call.state.open_files.erase(found);
    return call.code;
}

int dvu_dio_existfile(int area, int group, const char* name) {
    services call({"dvu_dio_existfile", {area, group}, text_of(name), ""});
    return call.code != 0 || call.file(area, group, name) ? call.code : FAKE_FAILURE;
}

int dvu_dio_remove(int area, int group, const char* name) {
    services call({"dvu_dio_remove", {area, group}, text_of(name), ""});
    if (call.code != 0) {
        return call.code;
    }
    return call.state.files.erase({area, group, name}) > 0 ? 0 : FAKE_FAILURE;
}

int dvu_dio_stat(int area, int group, const char* name, DVU_DIO_STATUS* status) {
    services call({"dvu_dio_stat", {area, group}, text_of(name), ""});
    const std::string* const file = call.file(area, group, name);
    if (call.code != 0 || !file) {
        return call.code != 0 ? call.code : FAKE_FAILURE;
    }
    status->size = call.state.stat_size >= 0 ? static_cast<std::uint32_t>(call.state.stat_size)
                                             : static_cast<std::uint32_t>(file->size());
    return 0;
}

// Trace

int emwGENTrcPrintf(int module, int group, int kind, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    char text[LONGEST_TRACE];
    std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    return services({"emwGENTrcPrintf", {module, group, kind}, text, ""}).code;
}

// Operating-system wrapper

OSW_Thread_Guard::OSW_Thread_Guard() {
    critical_section().lock();
    record("OSW_Thread_Guard");
}

OSW_Thread_Guard::~OSW_Thread_Guard() {
    record("~OSW_Thread_Guard");
    critical_section().unlock();
}

struct OSW_Mutex_Semaphore::state {
    sem_t semaphore;
};

OSW_Mutex_Semaphore::OSW_Mutex_Semaphore(int initial)
    : state_(new state) {
    sem_init(&state_->semaphore, 0, initial > 0 ? 1 : 0);
    services call({"OSW_Mutex_Semaphore", {initial}, "", ""});
}

OSW_Mutex_Semaphore::~OSW_Mutex_Semaphore() {
    record("~OSW_Mutex_Semaphore");
    sem_destroy(&state_->semaphore);
    delete state_;
}

OSW_Guard::OSW_Guard(OSW_Mutex_Semaphore& mutex)
    : mutex_(mutex) {
    while (sem_wait(&mutex_.state_->semaphore) != 0) {
    }
    record("OSW_Guard");
}

OSW_Guard::~OSW_Guard() {
    record("~OSW_Guard");
    sem_post(&mutex_.state_->semaphore);
}

OSW_Timer_Control::OSW_Timer_Control(unsigned long kind)
    : id_(0)
    , kind_(static_cast<std::uint32_t>(kind)) {
    services call({"OSW_Timer_Control", {static_cast<std::int64_t>(kind)}, "", ""});
    id_ = ++call.state.last_timer_id;
    call.state.calls.back().numbers.push_back(id_);
}

OSW_Timer_Control::~OSW_Timer_Control() {
    services call({"~OSW_Timer_Control", {kind_, id_}, "", ""});
}

int emwOSWSleep(unsigned long units) {
    return services({"emwOSWSleep", {static_cast<std::int64_t>(units)}, "", ""}).code;
}

int emwOSWLoadLibrary(void** handle, const char* path) {
    services call({"emwOSWLoadLibrary", {}, text_of(path), ""});
    *handle = nullptr;
    const auto found = call.state.libraries.find(text_of(path));
    if (call.code != 0 || found == call.state.libraries.end()) {
        return call.code != 0 ? call.code : FAKE_FAILURE;
    }
    *handle = found->second.has_handle ? &found->second : nullptr;
    return found->second.result;
}

int emwOSWGetProcAddress(void* handle, const char* name, void** address) {
    services call({"emwOSWGetProcAddress", {}, text_of(name), ""});
    if (call.code != 0) {
        return call.code;
    }
    for (const auto& library : call.state.libraries) {
        const auto symbol = library.second.symbols.find(text_of(name));
        if (&library.second == handle && symbol != library.second.symbols.end()) {
            *address = symbol->second;
            return 0;
        }
    }
    return FAKE_FAILURE;
}

// Message layer

namespace velarion {

facade_template::facade_template() {
    record("facade_template");
}

facade_template::~facade_template() {
    record("~facade_template");
}

void facade_template::dispatch(long func_id, char* rcv_buf, unsigned int rcv_buflen, gen_ipc_msghdr) {
    services call({"dispatch", {func_id, rcv_buflen}, "", bytes_of(rcv_buf, rcv_buflen)});
}

bmc_mc_client::bmc_mc_client() {
    record("bmc_mc_client");
}

bmc_mc_client::~bmc_mc_client() {
    record("~bmc_mc_client");
}

long bmc_mc_client::bmc_mc_check_facade(const char* name, long mode) {
    services call({"bmc_mc_check_facade", {mode}, text_of(name), ""});
    if (call.state.checks_until_ready > 0) {
        --call.state.checks_until_ready;
        return 0;
    }
    return 1;
}

long bmc_mc_client::bmc_mc_send_sync_message(long mode, long func_id, char* send_buf, unsigned int send_len,
                                             char* rcv_buf, unsigned int* rcv_len, const char* name) {
    services call({"bmc_mc_send_sync_message",
                   {mode, func_id, send_len, rcv_len ? *rcv_len : 0},
                   text_of(name),
                   bytes_of(send_buf, send_len)});
    if (call.code != 0 || call.state.replies.empty()) {
        return call.code;
    }
    const auto reply = call.state.replies.front();
    if (call.state.replies.size() > 1) {
        call.state.replies.pop_front();
    }
    if (reply.result == 0 && rcv_buf && rcv_len) {
        *rcv_len = static_cast<unsigned int>(reply.bytes.copy(rcv_buf, *rcv_len));
    }
    return reply.result;
}

} // namespace velarion
