#include "own_process.h"

#include <atomic>
#include <new>
#include <sys/mman.h>
#include <unistd.h>

namespace velarion {

namespace {

using known_process = std::atomic<pid_t>;

/** @return room for the number, which is 0 again in the child of a fork; null where there is no such memory
 */
known_process* make_room() {
    const std::size_t size = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    void* const page = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (page == MAP_FAILED) {
        return nullptr;
    }
    const int no_advice = -1; // an emulator of processors may accept every advice and follow none
    if (::madvise(page, size, no_advice) == 0 || ::madvise(page, size, MADV_WIPEONFORK) != 0) {
        ::munmap(page, size);
        return nullptr;
    }
    return new (page) known_process(0);
}

} // namespace

pid_t own_process() {
    static known_process* const known = make_room();
    if (!known) {
        return ::getpid();
    }
    pid_t number = known->load(std::memory_order_relaxed);
    if (number == 0) {
        number = ::getpid();
        known->store(number, std::memory_order_relaxed);
    }
    return number;
}

} // namespace velarion
