#include "dvc_pnl_dec_facade.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

std::atomic<int> allocations{0};

} // namespace

void* operator new(std::size_t size) {
    ++allocations;
    if (void* const memory = std::malloc(size > 0 ? size : 1)) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace velarion {

facade_template::facade_template() {}
facade_template::~facade_template() {}
void facade_template::dispatch(long, char*, unsigned int, gen_ipc_msghdr) {}
bmc_mc_client::bmc_mc_client() {}
bmc_mc_client::~bmc_mc_client() {}

long bmc_mc_client::bmc_mc_check_facade(const char*, long) {
    return 1;
}

long bmc_mc_client::bmc_mc_send_sync_message(long, long, char*, unsigned int, char* rcv_buf,
                                             unsigned int* rcv_len, const char*) {
    std::memset(rcv_buf, 0, *rcv_len);
    return 0;
}

} // namespace velarion

using namespace velarion;

TEST(memory, requests_take_none_from_the_heap) {
    dvc_pnl_dec_facade* const facade = dvc_pnl_dec_facade::dvc_pnl_dec_get_instance();
    OSW_Timer_Control timer(0);
    EXPECT_GE(allocations, 2); // facade and client: what is counted is counted

    allocations = 0;
    EXPECT_EQ(facade->dvc_pnl_dec_set_all_led_on(), 0);
    EXPECT_EQ(facade->dvc_pnl_dec_add_key_observer(nullptr), 0);
    facade->dvc_pnl_dec_set_led_airprint_timer_proc(timer, 1, 2, 3, 4);
    EXPECT_EQ(allocations, 0);
}
