#ifndef OSW_H
#define OSW_H

#include "panel_platform_export.h"

#include <cstdint>

/** Holds one process-wide critical section for its lifetime; a thread that holds it may take it again. */
class PANEL_PLATFORM_EXPORT OSW_Thread_Guard {
public:
    OSW_Thread_Guard();
    ~OSW_Thread_Guard();
    OSW_Thread_Guard(const OSW_Thread_Guard&) = delete;
    OSW_Thread_Guard& operator=(const OSW_Thread_Guard&) = delete;
};

/** A mutex; @p initial is 1 for one that is free, 0 for one that starts locked. */
class PANEL_PLATFORM_EXPORT OSW_Mutex_Semaphore {
public:
    explicit OSW_Mutex_Semaphore(int initial);
    ~OSW_Mutex_Semaphore();
    OSW_Mutex_Semaphore(const OSW_Mutex_Semaphore&) = delete;
    OSW_Mutex_Semaphore& operator=(const OSW_Mutex_Semaphore&) = delete;

private:
    friend class OSW_Guard;
    struct state;
    state* state_;
};

/** Locks a mutex for its lifetime. The thread that holds it must not take it again. */
class PANEL_PLATFORM_EXPORT OSW_Guard {
public:
    explicit OSW_Guard(OSW_Mutex_Semaphore& mutex);
    ~OSW_Guard();
    OSW_Guard(const OSW_Guard&) = delete;
    OSW_Guard& operator=(const OSW_Guard&) = delete;

private:
    OSW_Mutex_Semaphore& mutex_;
};

/**
 * Names a timer of the platform; its first word is the timer's number, unique in the process. It runs
 * nothing.
 * @p kind is kept behind the number and means nothing on a workstation.
 */
class PANEL_PLATFORM_EXPORT OSW_Timer_Control {
public:
    explicit OSW_Timer_Control(unsigned long kind);
    ~OSW_Timer_Control();
    OSW_Timer_Control(const OSW_Timer_Control&) = delete;
    OSW_Timer_Control& operator=(const OSW_Timer_Control&) = delete;

private:
    std::uint32_t id_;
    std::uint32_t kind_;
};

extern "C" {

/**
 * Suspends the calling thread.
 * @param units  platform time units, 1 microsecond each on a workstation.
 * @return 0
 */
PANEL_PLATFORM_EXPORT int emwOSWSleep(unsigned long units);

/** Loads a shared library. @param handle  receives its handle; null on failure. @return 0 on success */
PANEL_PLATFORM_EXPORT int emwOSWLoadLibrary(void** handle, const char* path);

/** Looks a symbol up. @param address  receives it; unchanged on failure. @return 0 on success */
PANEL_PLATFORM_EXPORT int emwOSWGetProcAddress(void* handle, const char* name, void** address);
}

#endif
