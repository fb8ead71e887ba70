#ifndef OWN_PROCESS_H
#define OWN_PROCESS_H

#include <sys/types.h>

namespace velarion {

/**
 * Number of this process, also after fork(), as getpid() gives it: without a system call where the kernel can
 * forget what it was in the child. Any thread; not in a child that shares its parent's memory.
 */
pid_t own_process();

} // namespace velarion

#endif
