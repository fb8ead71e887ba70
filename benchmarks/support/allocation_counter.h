#ifndef ALLOCATION_COUNTER_H
#define ALLOCATION_COUNTER_H

#include <cstddef>

namespace velarion {

/** How often memory was asked for in this process so far, by malloc() or by new. Not for several threads. */
std::size_t allocation_count();

} // namespace velarion

#endif
