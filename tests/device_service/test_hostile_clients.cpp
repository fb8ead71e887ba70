#include "dvc_pnl_dec_communication.h"
#include "dvc_pnl_dec_facade.h"
#include "raw_connection.h"
#include "service_process.h"

#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace panel_device;

const std::uint64_t HOSTILE = 666;

/** A service under attack; each test ends with the proof that it still serves. */
class test_hostile_clients : public scratch_service {
protected:
    void TearDown() override {
        velarion::dvc_pnl_dec_facade* const facade = velarion::dvc_pnl_dec_facade::dvc_pnl_dec_get_instance();
        EXPECT_EQ(DEVICE_OK, facade->dvc_pnl_dec_set_all_led_on());
    }
    service_process service_;
};

std::string random_bytes(std::mt19937& generator, std::size_t length) {
    std::string bytes(length, '\0');
    for (char& byte : bytes) {
        byte = static_cast<char>(generator() & 0xFFU);
    }
    return bytes;
}

TEST_F(test_hostile_clients, bytes_that_are_no_message_end_the_connection) {
    std::mt19937 generator(20240501);
    for (const std::size_t length : {1U, 71U, 72U, 88U, 104U, 4096U, 4097U, 100000U}) {
        SCOPED_TRACE(length);
        raw_connection connection(HOSTILE);
        EXPECT_TRUE(connection.send_bytes(random_bytes(generator, length)));
        EXPECT_TRUE(connection.is_closed_by_service());
    }
}

TEST_F(test_hostile_clients, random_requests_get_a_code_each) {
    std::mt19937 generator(20240502);
    const std::int32_t functions[] = {101, 103, 104, 108, 109, 110, CONTROL_LIST_LEDS, CONTROL_KEY_EVENT};
    raw_connection connection(HOSTILE);
    for (int turn = 0; turn < 3000; ++turn) {
        const std::int32_t func_id = functions[generator() % 8];
        std::string payload = random_bytes(generator, generator() % 60);
        if (payload.size() >= 8 && turn % 2 == 0) { // past the first checks
            velarion::dvc_pnl_dec_store(&payload[0], func_id);
            velarion::dvc_pnl_dec_store(&payload[4], static_cast<std::int32_t>(generator() % 8));
        }
        ASSERT_TRUE(connection.send_request(func_id, payload));
        DEVICE_MESSAGE reply;
        ASSERT_TRUE(connection.receive(reply));
        ASSERT_EQ(panel_platform::IPC_REPLY, connection.header().kind);
        ASSERT_EQ(func_id, reply.func_id);
    }
}

TEST_F(test_hostile_clients, a_negative_count_is_answered_and_the_connection_goes_on) {
    raw_connection connection(HOSTILE);
    std::string payload(32, '\0');
    velarion::dvc_pnl_dec_store(&payload[0], 101);
    velarion::dvc_pnl_dec_store(&payload[4], -2);
    ASSERT_TRUE(connection.send_request(101, payload));
    DEVICE_MESSAGE reply;
    ASSERT_TRUE(connection.receive(reply));
    EXPECT_EQ(DEVICE_BAD_COUNT, reply.result);
    EXPECT_EQ(DEVICE_OK, connection.ask(make_message(104, {})));
}

TEST_F(test_hostile_clients, one_that_never_reads_is_dropped) {
    raw_connection connection(HOSTILE);
    std::size_t sent = 0;
    while (sent < 1000000 && connection.send_request(103, std::string())) {
        ++sent;
    }
    EXPECT_LT(sent, 1000000U);
    EXPECT_FALSE(testing::Test::HasFailure());
}

TEST_F(test_hostile_clients, connections_beyond_the_limit_wait_and_come_in_later) {
    std::vector<std::unique_ptr<raw_connection>> connections;
    for (int number = 0; number < 64; ++number) {
        connections.push_back(std::make_unique<raw_connection>(HOSTILE));
    }
    EXPECT_EQ(0, velarion::bmc_mc_client::bmc_mc_check_facade(velarion::DVC_PNL_DEC_SERVICE_NAME, 1));
    connections.clear(); // and the request at the end of the test is served
}

} // namespace
