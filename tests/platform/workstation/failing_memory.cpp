// Takes the place of the program's allocation. A source of its own, so that the compiler pairs nothing with
// it.
#include "scratch_platform.h"

#include <cstdlib>
#include <new>

thread_local long allocations_left = -1;

void* operator new(std::size_t size) {
    void* const memory = allocations_left != 0 ? std::malloc(size) : nullptr;
    if (!memory) {
        throw std::bad_alloc();
    }
    allocations_left -= allocations_left > 0 ? 1 : 0;
    return memory;
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
