#include "osw.h"

#include "scratch_folder.h"
#include "scratch_platform.h"

#include <cstring>
#include <dlfcn.h>
#include <filesystem>
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
    EXPECT_EQ(by_mutex, 2000);
    EXPECT_EQ(by_section, 2000);
    EXPECT_EQ(ids.size(), 2000U);
}

TEST(test_osw, libraries_are_loaded_and_slots_kept_when_a_symbol_is_missing) {
    void* handle = nullptr;
    for (const char* path : {"/no/such/library.so", "", static_cast<const char*>(nullptr)}) {
        handle = &handle;
        EXPECT_NE(emwOSWLoadLibrary(&handle, path), 0);
        EXPECT_EQ(handle, nullptr);
    }
    ASSERT_EQ(emwOSWLoadLibrary(&handle, "libm.so.6"), 0);
    void* address = nullptr;
    EXPECT_EQ(emwOSWGetProcAddress(handle, "cbrt", &address), 0);
    EXPECT_NE(emwOSWGetProcAddress(handle, "no_such_symbol", &address), 0);
    EXPECT_NE(emwOSWGetProcAddress(nullptr, "cbrt", &address), 0);
    EXPECT_NE(address, nullptr);
}

TEST(test_osw, a_library_that_was_replaced_is_loaded_anew) {
    const scratch_folder folder;
    const std::string path = folder.path("library.so");
    const std::string rebuilt = folder.path("rebuilt.so");
    const std::pair<const char*, const char*> libraries[] = {{"libm.so.6", "cbrt"},
                                                             {"libz.so.1", "zlibVersion"}};
    for (const auto& [name, symbol] : libraries) {
        void* handle = nullptr;
        void* address = nullptr;
        Dl_info place = {};
        ASSERT_EQ(emwOSWLoadLibrary(&handle, name), 0);
        ASSERT_EQ(emwOSWGetProcAddress(handle, symbol, &address), 0);
        ASSERT_NE(dladdr(address, &place), 0);
        std::filesystem::copy_file(place.dli_fname, rebuilt);
        std::filesystem::rename(rebuilt, path);
        void* again = nullptr;
        ASSERT_EQ(emwOSWLoadLibrary(&handle, path.c_str()), 0);
        ASSERT_EQ(emwOSWLoadLibrary(&again, path.c_str()), 0);
        EXPECT_EQ(again, handle);
        EXPECT_EQ(emwOSWGetProcAddress(handle, symbol, &address), 0) << symbol;
    }
}

} // namespace
