#include "allocation_counter.h"

#include <cstdlib>

namespace {

std::size_t g_count = 0;

} // namespace

// The C library's own allocator under the name that it keeps for those who stand before it.
extern "C" {
void* __libc_malloc(std::size_t size);                // NOLINT(bugprone-reserved-identifier,cert-dcl37-c)
void* __libc_calloc(std::size_t n, std::size_t size); // NOLINT(bugprone-reserved-identifier,cert-dcl37-c)

void* __libc_realloc(void* memory, std::size_t size); // NOLINT(bugprone-reserved-identifier,cert-dcl37-c)

void* malloc(std::size_t size) {
    ++g_count;
    return __libc_malloc(size);
}

void* calloc(std::size_t n, std::size_t size) {
    ++g_count;
    return __libc_calloc(n, size);
}

void* realloc(void* memory, std::size_t size) {
    ++g_count;
    return __libc_realloc(memory, size);
}
}

namespace velarion {

std::size_t allocation_count() {
    return g_count;
}

} // namespace velarion
