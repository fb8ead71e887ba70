#include "dvc_pnl_dec_facade.h"

#include "fake_platform.h"
#include "message_bytes.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

using velarion::dvc_pnl_dec_facade;

namespace {

const std::size_t THREADS = 16;

/** What a thread saw at its first use. */
struct SIGHT {
    dvc_pnl_dec_facade* facade;
    std::string reply;
};

/**
 * Uses the facade's own members before anything of the platform: locks in there would hide from the
 * thread sanitizer a facade that was handed over without order.
 */
SIGHT use_facade(const std::atomic<bool>& is_open) {
    std::string request = request_bytes(103, {});
    SIGHT sight{nullptr, std::string(88, '\0')};
    unsigned int capacity = 88;
    while (!is_open.load(std::memory_order_relaxed)) {
    }
    sight.facade = dvc_pnl_dec_facade::dvc_pnl_dec_get_instance();
    sight.facade->notify(103, &request[0], 88, &sight.reply[0], &capacity);
    return sight;
}

} // namespace

/** The only test that touches the process's own facade: it has a first use once. */
TEST(first_use, many_threads_get_one_facade_with_one_client) {
    static bool is_used = false;
    if (is_used) {
        GTEST_SKIP() << "the first use of this process is over";
    }
    is_used = true;
    fake_platform& platform = fake_platform_instance();
    platform.reset();
    platform.add_reply(reply_bytes(33));

    std::atomic<bool> is_open{false};
    std::vector<SIGHT> sights(THREADS);
    std::vector<std::thread> threads;
    threads.reserve(THREADS);
    for (SIGHT& sight : sights) {
        threads.emplace_back([&is_open, &sight] { sight = use_facade(is_open); });
    }
    is_open.store(true, std::memory_order_relaxed);
    for (std::thread& thread : threads) {
        thread.join();
    }

    ASSERT_NE(sights[0].facade, nullptr);
    for (const SIGHT& sight : sights) {
        EXPECT_EQ(sight.facade, sights[0].facade);
        EXPECT_EQ(sight.reply, reply_bytes(33));
    }
    EXPECT_EQ(platform.count("facade_template"), 1U);
    EXPECT_EQ(platform.count("bmc_mc_client"), 1U);
    EXPECT_EQ(platform.count("bmc_mc_send_sync_message"), THREADS);
    const auto mutexes = platform.calls_of("OSW_Mutex_Semaphore");
    ASSERT_EQ(mutexes.size(), 1U);
    EXPECT_EQ(mutexes[0].numbers, std::vector<std::int64_t>{1});
    for (const char* const function : {"OSW_Thread_Guard", "OSW_Guard"}) {
        EXPECT_GE(platform.count(function), 1U);
        EXPECT_EQ(platform.count(function), platform.count(std::string("~") + function));
    }

    platform.forget_calls();
    EXPECT_EQ(dvc_pnl_dec_facade::dvc_pnl_dec_get_instance(), sights[0].facade);
    EXPECT_TRUE(platform.calls().empty()) << "a later use takes a lock";
}
