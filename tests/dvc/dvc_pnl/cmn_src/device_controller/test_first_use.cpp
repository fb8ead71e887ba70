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

/** What a thread saw at its first use. */
struct SIGHT {
    dvc_pnl_dec_facade* facade = nullptr;
    std::string reply = std::string(88, '\0');
};

/**
 * Uses the facade's own members before anything of the platform: locks in there would hide from the
 * thread sanitizer a facade that was handed over without order.
 */
void use_facade(const std::atomic<bool>& is_open, SIGHT& sight) {
    std::string request = request_bytes(103, {});
    unsigned int capacity = 88;
    while (!is_open.load(std::memory_order_relaxed)) {
    }
    sight.facade = dvc_pnl_dec_facade::dvc_pnl_dec_get_instance();
    sight.facade->notify(103, &request[0], 88, &sight.reply[0], &capacity);
}

} // namespace

/** The only test that touches the process's own facade: it has a first use once, so it cannot be repeated. */
TEST(first_use, many_threads_get_one_facade_with_one_client) {
    fake_platform& platform = fake_platform_instance();
    platform.reset();
    platform.add_reply(reply_bytes(33));
    std::atomic<bool> is_open{false};
    SIGHT sights[16];
    std::vector<std::thread> threads;
    for (SIGHT& sight : sights) {
        threads.emplace_back([&is_open, &sight] { use_facade(is_open, sight); });
    }
    is_open.store(true, std::memory_order_relaxed);
    for (std::thread& thread : threads) {
        thread.join();
    }

    for (const SIGHT& sight : sights) {
        EXPECT_EQ(sight.facade, sights[0].facade);
        EXPECT_EQ(sight.reply, reply_bytes(33));
    }
    EXPECT_EQ(platform.count("facade_template"), 1U);
    EXPECT_EQ(platform.count("bmc_mc_client"), 1U);
    const auto mutexes = platform.calls_of("OSW_Mutex_Semaphore");
    ASSERT_EQ(mutexes.size(), 1U);
    EXPECT_EQ(mutexes[0].numbers, std::vector<std::int64_t>{1});
    platform.forget_calls();
    EXPECT_EQ(dvc_pnl_dec_facade::dvc_pnl_dec_get_instance(), sights[0].facade);
    EXPECT_TRUE(platform.calls().empty()) << "a later use takes a lock";
}
