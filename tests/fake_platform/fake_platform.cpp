#include "fake_platform.h"

#include "data_file_store.h"
#include "message_layer.h"
#include "osw.h"
#include "settings_store.h"
#include "trace.h"

#include <algorithm>
#include <chrono>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <utility>

fake_platform& fake_platform_instance() {
    static fake_platform* const instance = new fake_platform;
    return *instance;
}

std::vector<fake_call> fake_platform::calls_of(const std::string& function) const {
    std::vector<fake_call> found;
    std::copy_if(state_.calls.begin(), state_.calls.end(), std::back_inserter(found),
                 [&](const fake_call& call) { return call.function == function; });
    return found;
}

bool fake_platform::wait_for_calls(const std::string& function, std::size_t count) {
    std::unique_lock<std::mutex> lock(mutex_);
    return called_.wait_for(lock, std::chrono::minutes(1), [&] { return this->count(function) >= count; });
}

void fake_platform::add_library(const std::string& path, int result, bool has_handle) {
    LIBRARY& library = state_.libraries[path];
    library.result = result;
    library.has_handle = has_handle;
}

bool fake_platform::get_file(int area, int group, const std::string& name, std::string& bytes) const {
    const auto found = state_.files.find({area, group, name});
    if (found == state_.files.end()) {
        return false;
    }
    bytes = found->second;
    return true;
}

/** One call of the platform: recorded, and alone with the script while it runs. */
struct fake_platform_call {
    using OPEN_FILE = fake_platform::OPEN_FILE;

    explicit fake_platform_call(fake_call call)
        : lock(fake_platform_instance().mutex_)
        , state(fake_platform_instance().state_) {
        const auto failure = state.failures.find(call.function);
        failure_code = failure == state.failures.end() ? 0 : failure->second;
        state.calls.push_back(std::move(call));
        fake_platform_instance().called_.notify_all();
    }

    /** @return 0, or why the call fails: as scripted, or since what it is about is not there */
    int code_when(bool is_there) const { return failure_code != 0 || is_there ? failure_code : FAKE_FAILURE; }

    // NOLINTNEXTLINE(performance-no-int-to-ptr): never an address
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
    fake_platform::STATE& state;
    int failure_code;
};

namespace {

constexpr int MODE_READ = 0;
constexpr int MODE_WRITE = 1;
constexpr std::size_t LONGEST_TRACE = 16384; // with the terminating NUL; more is cut

void record(const char* function) {
    fake_platform_call call({function, {}, "", ""});
}

template <typename NUMBER> void copy_number(void* target, std::uint32_t value) {
    const NUMBER number = static_cast<NUMBER>(value);
    std::memcpy(target, &number, sizeof number);
}

/** @return a number the script may replace: it is negative when the real one is to stay */
std::uint32_t scripted(std::int64_t number, std::size_t real) {
    return static_cast<std::uint32_t>(number >= 0 ? number : static_cast<std::int64_t>(real));
}

std::recursive_mutex& critical_section() {
    static std::recursive_mutex* const section = new std::recursive_mutex;
    return *section;
}

} // namespace

// Settings store

int ent_set_get_status(std::uint32_t group, std::uint32_t item, void* value) {
    fake_platform_call call({"ent_set_get_status", {group, item}, "", ""});
    const auto found = call.state.settings.find({group, item});
    const int code = call.code_when(found != call.state.settings.end());
    if (code != 0 || found->second.code != 0) {
        return code != 0 ? code : found->second.code;
    }
    if (found->second.width == 8) {
        copy_number<std::uint8_t>(value, found->second.value);
    } else if (found->second.width == 16) {
        copy_number<std::uint16_t>(value, found->second.value);
    } else {
        copy_number<std::uint32_t>(value, found->second.value);
    }
    return 0;
}

int ent_set_getmessage(int language_id, int attribute, char* text) {
    fake_platform_call call({"ent_set_getmessage", {language_id, attribute}, "", ""});
    const auto found = call.state.attributes.find({language_id, attribute});
    const int code = call.code_when(found != call.state.attributes.end());
    if (code == 0) {
        const std::string bytes = found->second.substr(0, ENT_SET_MESSAGE_SIZE - 1);
        std::memcpy(text, bytes.c_str(), bytes.size() + 1);
    }
    return code;
}

// Data-file store

int dvu_dio_fopen(int area, int group, const char* name, int mode, DVU_DIO_HANDLE* handle) {
    fake_platform_call call({"dvu_dio_fopen", {area, group, mode}, name, ""});
    const std::string* const file = call.file(area, group, name);
    const int code = call.code_when(mode == MODE_WRITE || file);
    if (code == 0) {
        *handle = call.new_handle();
        call.state.open_files[reinterpret_cast<std::uintptr_t>(*handle)] = {
            {area, group, name}, mode, mode == MODE_READ ? *file : std::string(), 0};
    }
    return code;
}

int dvu_dio_fread(void* buffer, std::uint32_t size, DVU_DIO_HANDLE handle, std::uint32_t* count) {
    fake_platform_call call({"dvu_dio_fread", {size}, "", ""});
    fake_platform_call::OPEN_FILE* const file = call.open_file(handle, MODE_READ);
    const int code = call.code_when(file);
    *count = 0;
    if (code == 0) {
        const std::size_t delivered = file->bytes.copy(static_cast<char*>(buffer),
                                                       std::min(size, call.state.read_limit), file->position);
        file->position += delivered;
        *count = scripted(call.state.read_count, delivered);
    }
    return code;
}

int dvu_dio_fwrite(const void* data, std::uint32_t size, DVU_DIO_HANDLE handle, std::uint32_t* count) {
    fake_platform_call call({"dvu_dio_fwrite", {size}, "", ""});
    fake_platform_call::OPEN_FILE* const file = call.open_file(handle, MODE_WRITE);
    const int code = call.code_when(file);
    *count = 0;
    if (code == 0) {
        file->bytes.append(static_cast<const char*>(data), size);
        *count = size;
    }
    return code;
}

int dvu_dio_fflush(DVU_DIO_HANDLE handle) {
    fake_platform_call call({"dvu_dio_fflush", {}, "", ""});
    return call.code_when(call.open_file(handle, MODE_READ) || call.open_file(handle, MODE_WRITE));
}

int dvu_dio_fclose(DVU_DIO_HANDLE handle) {
    fake_platform_call call({"dvu_dio_fclose", {}, "", ""});
    const auto found = call.state.open_files.find(reinterpret_cast<std::uintptr_t>(handle));
    const int code = call.code_when(found != call.state.open_files.end());
    if (code == 0 && found->second.mode == MODE_WRITE) {
        call.state.files[found->second.key] = found->second.bytes;
    }
    if (found != call.state.open_files.end()) {
        call.state.open_files.erase(found);
    }
    return code;
}

int dvu_dio_existfile(int area, int group, const char* name) {
    fake_platform_call call({"dvu_dio_existfile", {area, group}, name, ""});
    return call.code_when(call.file(area, group, name));
}

int dvu_dio_remove(int area, int group, const char* name) {
    fake_platform_call call({"dvu_dio_remove", {area, group}, name, ""});
    const int code = call.code_when(call.file(area, group, name));
    if (code == 0) {
        call.state.files.erase({area, group, name});
    }
    return code;
}

int dvu_dio_stat(int area, int group, const char* name, DVU_DIO_STATUS* status) {
    fake_platform_call call({"dvu_dio_stat", {area, group}, name, ""});
    const std::string* const file = call.file(area, group, name);
    const int code = call.code_when(file);
    if (code == 0) {
        status->size = scripted(call.state.stat_size, file->size());
    }
    return code;
}

// Trace

int emwGENTrcPrintf(int module, int group, int kind, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    char text[LONGEST_TRACE];
    std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    return fake_platform_call({"emwGENTrcPrintf", {module, group, kind}, text, "", format}).failure_code;
}

// Operating-system wrapper

OSW_Thread_Guard::OSW_Thread_Guard() {
    record("OSW_Thread_Guard");
    critical_section().lock();
}

OSW_Thread_Guard::~OSW_Thread_Guard() {
    record("~OSW_Thread_Guard");
    critical_section().unlock();
}

/** Starts free: whether it should is among the recorded numbers. */
struct OSW_Mutex_Semaphore::state {
    std::mutex mutex;
};

OSW_Mutex_Semaphore::OSW_Mutex_Semaphore(int initial)
    : state_(new state) {
    fake_platform_call call({"OSW_Mutex_Semaphore", {initial}, "", ""});
}

OSW_Mutex_Semaphore::~OSW_Mutex_Semaphore() {
    record("~OSW_Mutex_Semaphore");
    delete state_;
}

OSW_Guard::OSW_Guard(OSW_Mutex_Semaphore& mutex)
    : mutex_(mutex) {
    mutex_.state_->mutex.lock();
    record("OSW_Guard");
}

OSW_Guard::~OSW_Guard() {
    record("~OSW_Guard");
    mutex_.state_->mutex.unlock();
}

OSW_Timer_Control::OSW_Timer_Control(unsigned long kind)
    : id_(0)
    , kind_(static_cast<std::uint32_t>(kind)) {
    fake_platform_call call({"OSW_Timer_Control", {kind_}, "", ""});
    id_ = ++call.state.last_timer_id;
    call.state.calls.back().numbers.push_back(id_);
}

OSW_Timer_Control::~OSW_Timer_Control() {
    fake_platform_call call({"~OSW_Timer_Control", {kind_, id_}, "", ""});
}

int emwOSWSleep(unsigned long units) {
    return fake_platform_call({"emwOSWSleep", {static_cast<std::int64_t>(units)}, "", ""}).failure_code;
}

int emwOSWLoadLibrary(void** handle, const char* path) {
    fake_platform_call call({"emwOSWLoadLibrary", {}, path, ""});
    const auto found = call.state.libraries.find(path);
    const int code = call.code_when(found != call.state.libraries.end());
    *handle = code == 0 && found->second.has_handle ? &found->second : nullptr;
    return code == 0 ? found->second.result : code;
}

int emwOSWGetProcAddress(void* handle, const char* name, void** address) {
    fake_platform_call call({"emwOSWGetProcAddress", {}, name, ""});
    for (const auto& library : call.state.libraries) {
        const auto symbol = library.second.symbols.find(name);
        if (call.failure_code == 0 && &library.second == handle && symbol != library.second.symbols.end()) {
            *address = symbol->second;
            return 0;
        }
    }
    return call.code_when(false);
}

// Message layer

namespace velarion {

facade_template::facade_template() {
    record("facade_template");
}

facade_template::~facade_template() {
    record("~facade_template");
}

void facade_template::dispatch(long, char*, unsigned int, gen_ipc_msghdr) {
    record("dispatch");
}

bmc_mc_client::bmc_mc_client() {
    record("bmc_mc_client");
}

bmc_mc_client::~bmc_mc_client() {
    record("~bmc_mc_client");
}

long bmc_mc_client::bmc_mc_check_facade(const char* name, long mode) {
    fake_platform_call call({"bmc_mc_check_facade", {mode}, name, ""});
    if (call.state.checks_until_ready > 0) {
        --call.state.checks_until_ready;
        return 0;
    }
    return 1;
}

long bmc_mc_client::bmc_mc_send_sync_message(long mode, long func_id, char* send_buf, unsigned int send_len,
                                             char* rcv_buf, unsigned int* rcv_len, const char* name) {
    fake_platform_call call({"bmc_mc_send_sync_message",
                             {mode, func_id, send_len, *rcv_len},
                             name,
                             std::string(send_buf, send_len)});
    if (call.failure_code != 0 || call.state.replies.empty()) {
        return call.failure_code;
    }
    const auto reply = call.state.replies.front();
    if (call.state.replies.size() > 1) {
        call.state.replies.pop_front();
    }
    if (reply.result == 0) {
        *rcv_len = static_cast<unsigned int>(reply.bytes.copy(rcv_buf, *rcv_len));
    }
    return reply.result;
}

} // namespace velarion
