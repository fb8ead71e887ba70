#include "osw.h"

#include "scratch_platform.h"

#include <cstring>
#include <set>
#include <thread>

namespace {

/** Adds in two steps that another thread could come between. */
void add_slowly(int& counter) {
    const int seen = counter;
    std::this_thread::yield();
    counter = seen + 1;
}

TEST(test_osw, guards_exclude_other_threads_and_timers_have_numbers_of_their_own) {
    OSW_Mutex_Semaphore mutex(1);
    int by_mutex = 0;
    int by_section = 0;
    std::set<std::uint32_t> ids;
    run_in_threads([&](int) {
        for (int turn = 0; turn < 500; ++turn) {
            {
                const OSW_Guard guard(mutex);
                add_slowly(by_mutex);
            }
            const OSW_Timer_Control timer(0x24000);
            std::uint32_t id = 0;
            // NOLINTNEXTLINE(bugprone-undefined-memory-manipulation): its first bytes are the promise
            std::memcpy(&id, &timer, sizeof id);
            const OSW_Thread_Guard outer;
            const OSW_Thread_Guard inner; // the same thread may take it again
            add_slowly(by_section);
            ids.insert(id);
        }
    });
    EXPECT_EQ(2000, by_mutex);
    EXPECT_EQ(2000, by_section);
    EXPECT_EQ(2000U, ids.size());
}

TEST(test_osw, libraries_are_loaded_and_slots_kept_when_a_symbol_is_missing) {
    void* handle = nullptr;
    for (const char* path : {"/no/such/library.so", "", static_cast<const char*>(nullptr)}) {
        handle = &handle;
        EXPECT_NE(0, emwOSWLoadLibrary(&handle, path));
        EXPECT_EQ(nullptr, handle);
    }
    ASSERT_EQ(0, emwOSWLoadLibrary(&handle, "libm.so.6"));
    void* address = nullptr;
    EXPECT_EQ(0, emwOSWGetProcAddress(handle, "cbrt", &address));
    EXPECT_NE(0, emwOSWGetProcAddress(handle, "no_such_symbol", &address));
    EXPECT_NE(0, emwOSWGetProcAddress(nullptr, "cbrt", &address));
    EXPECT_NE(nullptr, address);
}

} // namespace
