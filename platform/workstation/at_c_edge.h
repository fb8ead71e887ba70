#ifndef AT_C_EDGE_H
#define AT_C_EDGE_H

#include "platform_codes.h"

#include <new>

namespace velarion {

/** Runs the work of a function with C linkage. @return the number of its code; missing memory is one too */
template <typename WORK> int at_c_edge(const WORK& work) {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return PLATFORM_IO_ERROR;
    }
}

} // namespace velarion

#endif
