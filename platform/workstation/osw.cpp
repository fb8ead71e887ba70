#include "osw.h"

#include "file_descriptor.h"
#include "platform_codes.h"

#include <atomic>
#include <cerrno>
#include <ctime>
#include <dlfcn.h>
#include <fcntl.h>
#include <map>
#include <mutex>
#include <semaphore.h>
#include <string>
#include <sys/stat.h>
#include <utility>

using namespace velarion;

namespace {

constexpr unsigned long UNITS_PER_SECOND = 1000000;
constexpr long NANOSECONDS_PER_UNIT = 1000;
constexpr long NANOSECONDS_PER_SECOND = 1000000000;

/** Never destroyed: a guard may be taken while the process ends. */
std::recursive_mutex& critical_section() {
    static std::recursive_mutex* const section = new std::recursive_mutex;
    return *section;
}

std::uint32_t next_timer_id() {
    static std::atomic<std::uint32_t> last_id{0};
    return ++last_id;
}

timespec time_after(unsigned long units) {
    timespec time = {};
    clock_gettime(CLOCK_MONOTONIC, &time);
    time.tv_sec += static_cast<time_t>(units / UNITS_PER_SECOND);
    time.tv_nsec += static_cast<long>(units % UNITS_PER_SECOND) * NANOSECONDS_PER_UNIT;
    if (time.tv_nsec >= NANOSECONDS_PER_SECOND) {
        time.tv_nsec -= NANOSECONDS_PER_SECOND;
        ++time.tv_sec;
    }
    return time;
}

/** Tells whether a library's file is another one than when it was first loaded from the same path. */
class loaded_libraries {
public:
    bool is_replaced(const char* path, const struct stat& now) {
        const std::lock_guard<std::mutex> lock(mutex_);
        return identities_.insert({path, identity(now)}).first->second != identity(now);
    }

private:
    using file_identity = std::pair<dev_t, ino_t>;
    static file_identity identity(const struct stat& file) { return {file.st_dev, file.st_ino}; }

    std::mutex mutex_;
    std::map<std::string, file_identity> identities_;
};

/** The loader takes a path that it knows for the library that it has; a rebuilt one is loaded by its
 * descriptor. */
void* load_library(const char* path) {
    static loaded_libraries* const loaded = new loaded_libraries;
    const file_descriptor file(::open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status = {};
    if (file.get() < 0 || ::fstat(file.get(), &status) != 0 || !loaded->is_replaced(path, status)) {
        return dlopen(path, RTLD_NOW | RTLD_LOCAL);
    }
    return dlopen(("/proc/self/fd/" + std::to_string(file.get())).c_str(), RTLD_NOW | RTLD_LOCAL);
}

} // namespace

OSW_Thread_Guard::OSW_Thread_Guard() {
    critical_section().lock();
}

OSW_Thread_Guard::~OSW_Thread_Guard() {
    critical_section().unlock();
}

struct OSW_Mutex_Semaphore::state {
    sem_t semaphore;
};

OSW_Mutex_Semaphore::OSW_Mutex_Semaphore(int initial)
    : state_(new state) {
    sem_init(&state_->semaphore, 0, initial > 0 ? 1 : 0);
}

OSW_Mutex_Semaphore::~OSW_Mutex_Semaphore() {
    sem_destroy(&state_->semaphore);
    delete state_;
}

OSW_Guard::OSW_Guard(OSW_Mutex_Semaphore& mutex)
    : mutex_(mutex) {
    while (sem_wait(&mutex_.state_->semaphore) != 0 && errno == EINTR) {
    }
}

OSW_Guard::~OSW_Guard() {
    sem_post(&mutex_.state_->semaphore);
}

OSW_Timer_Control::OSW_Timer_Control(unsigned long kind)
    : id_(next_timer_id())
    , kind_(static_cast<std::uint32_t>(kind)) {}

OSW_Timer_Control::~OSW_Timer_Control() {}

int emwOSWSleep(unsigned long units) {
    const timespec wake_up = time_after(units);
    int error = EINTR;
    while (error == EINTR) {
        error = clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &wake_up, nullptr);
    }
    return error == 0 ? PLATFORM_OK : PLATFORM_INVALID_ARGUMENT;
}

int emwOSWLoadLibrary(void** handle, const char* path) {
    if (!handle) {
        return PLATFORM_INVALID_ARGUMENT;
    }
    *handle = nullptr;
    if (!path || !*path) {
        return PLATFORM_INVALID_ARGUMENT;
    }
    *handle = load_library(path);
    return *handle ? PLATFORM_OK : PLATFORM_LIBRARY_NOT_LOADED;
}

int emwOSWGetProcAddress(void* handle, const char* name, void** address) {
    if (!handle || !name || !address) {
        return PLATFORM_INVALID_ARGUMENT;
    }
    void* const found = dlsym(handle, name);
    if (!found) {
        return PLATFORM_SYMBOL_NOT_FOUND;
    }
    *address = found;
    return PLATFORM_OK;
}
