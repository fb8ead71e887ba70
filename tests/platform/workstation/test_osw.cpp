#include "osw.h"

#include <csignal>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <sys/time.h>
#include <thread>
#include <vector>

namespace {

void run_in_threads(const std::function<void()>& work) {
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number) {
        threads.emplace_back(work);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

/** Adds in two steps that another thread could come between. */
void add_slowly(int& counter) {
    const int seen = counter;
    std::this_thread::yield();
    counter = seen + 1;
}

TEST(test_osw, guards_exclude_other_threads) {
    OSW_Mutex_Semaphore mutex(1);
    int by_mutex = 0;
    int by_section = 0;
    run_in_threads([&] {
        for (int turn = 0; turn < 500; ++turn) {
            {
                const OSW_Guard guard(mutex);
                add_slowly(by_mutex);
            }
            const OSW_Thread_Guard outer;
            const OSW_Thread_Guard inner; // the same thread may take it again
            add_slowly(by_section);
        }
    });
    EXPECT_EQ(2000, by_mutex);
    EXPECT_EQ(2000, by_section);
}

TEST(test_osw, timers_carry_numbers_of_their_own_in_their_first_bytes) {
    std::set<std::uint32_t> ids;
    run_in_threads([&] {
        for (int turn = 0; turn < 100; ++turn) {
            const OSW_Timer_Control timer(0x24000);
            std::uint32_t id = 0;
            std::memcpy(&id, &timer, sizeof id);
            const OSW_Thread_Guard guard;
            ids.insert(id);
        }
    });
    EXPECT_EQ(400U, ids.size());
}

TEST(test_osw, sleep_goes_on_after_signals) {
    std::signal(SIGALRM, [](int) {});
    const itimerval each_millisecond = {{0, 1000}, {0, 1000}};
    const itimerval never = {};
    ::setitimer(ITIMER_REAL, &each_millisecond, nullptr);
    EXPECT_EQ(0, emwOSWSleep(3000));
    ::setitimer(ITIMER_REAL, &never, nullptr);
    EXPECT_EQ(0, emwOSWSleep(0));
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
