#include "dvc_pnl_dec_facade.h"

#include "dvc_pnl_dec_key_event_observer.h"
#include "dvc_pnl_dec_serialize.h"
#include "fake_platform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <functional>
#include <limits>
#include <thread>
#include <type_traits>

using namespace velarion;

namespace {

constexpr int MOST = std::numeric_limits<int>::max();
constexpr int LEAST = std::numeric_limits<int>::min();
constexpr int NO_RESULT = 4711;
constexpr int TIMER_FUNCTION = 108;

using numbers = std::vector<std::int64_t>;

/** A facade of a test's own; the process's one has a first use only once. */
struct own_facade : dvc_pnl_dec_facade {};

struct quiet_observer : dvc_pnl_dec_key_event_observer {
    void dvc_pnl_dec_key_pressed(int) override {}
    void dvc_pnl_dec_key_released(int) override {}
};

static_assert(std::is_copy_constructible<quiet_observer>::value &&
                  std::is_copy_assignable<quiet_observer>::value,
              "a host may copy its observer");

// Messages as bytes, built from numbers and written out independently.

struct record_row {
    std::int32_t id;
    std::int32_t value;
};

/** @return 32 bits as this processor lays them into memory */
std::string word_bytes(std::int32_t number) {
    std::string bytes(sizeof number, '\0');
    std::memcpy(&bytes[0], &number, sizeof number);
    return bytes;
}

/** @return header and records as they lie in memory, without anything behind the last record */
std::string message_bytes(std::int32_t func_id, std::int32_t pcnt, const std::vector<record_row>& records) {
    const std::size_t header_length = 88;
    std::string bytes = std::string(72, '\0') + word_bytes(func_id) + word_bytes(pcnt) + std::string(4, '\0');
    for (const record_row& record : records) {
        bytes += word_bytes(record.id) + word_bytes(record.value);
    }
    bytes.resize(std::max(bytes.size(), header_length), '\0');
    return bytes;
}

/** @return 88 bytes with a result code */
std::string reply_bytes(std::int32_t result) {
    return std::string(88, '\xEE').replace(80, 4, word_bytes(result));
}

/** One requesting operation: how it is called, and what it must send. */
struct operation_row {
    std::function<int()> call;
    std::int32_t func_id;
    std::vector<record_row> records;
};

class facade : public testing::Test {
protected:
    static fake_platform& fresh_platform() {
        fake_platform_instance().reset();
        return fake_platform_instance();
    }

    int set_led() {
        return facade_.dvc_pnl_dec_set_led_status(DVC_PNL_DEC_LED_ID{LEAST}, DVC_PNL_DEC_LED_STATUS_ID{MOST});
    }

    int run_timer() {
        facade_.dvc_pnl_dec_set_led_airprint_timer_proc(timer_, LEAST, -1, MOST, 0x01020304);
        return NO_RESULT;
    }

    fake_platform& platform_ = fresh_platform();
    own_facade facade_;
    OSW_Timer_Control timer_{5}; // the fake's first timer, so its number is 1
    quiet_observer observer_;
    const std::int32_t address_ = static_cast<std::int32_t>(reinterpret_cast<std::uintptr_t>(&observer_));

    const operation_row operations_[5] = {
        {[this] { return set_led(); }, 101, {{0, LEAST}, {1, MOST}}},
        {[this] { return facade_.dvc_pnl_dec_set_all_led_on(); }, 103, {}},
        {[this] { return facade_.dvc_pnl_dec_set_all_led_off(); }, 104, {}},
        {[this] { return run_timer(); },
         TIMER_FUNCTION,
         {{4, 1}, {5, LEAST}, {6, -1}, {7, MOST}, {8, 0x01020304}}},
        {[this] { return facade_.dvc_pnl_dec_add_key_observer(&observer_); }, 109, {{9, address_}}},
    };
};

/** What a thread saw at its first use. */
struct sight_row {
    dvc_pnl_dec_facade* facade = nullptr;
    std::string reply = std::string(88, '\0');
};

void use_facade(sight_row& sight, std::atomic<bool>& is_there) {
    std::string request = message_bytes(103, 0, {});
    unsigned int capacity = 88;
    sight.facade = dvc_pnl_dec_facade::dvc_pnl_dec_get_instance();
    is_there.store(true, std::memory_order_relaxed);
    sight.facade->notify(103, &request[0], 88, &sight.reply[0], &capacity);
}

} // namespace

TEST_F(facade, requests_have_exact_bytes_and_go_out_when_the_service_is_ready) {
    for (const operation_row& operation : operations_) {
        SCOPED_TRACE(operation.func_id);
        platform_.forget_calls();
        operation.call();
        const auto count = static_cast<std::int32_t>(operation.records.size());
        const std::int64_t length = 88 + 8 * count;
        std::string expected = message_bytes(operation.func_id, count, operation.records);
        expected.resize(static_cast<std::size_t>(length), '\0'); // four bytes behind the last record
        const auto calls = platform_.calls();
        ASSERT_EQ(calls.size(), 4U); // the first and the last: a timer control
        EXPECT_EQ(calls[1].function, "bmc_mc_check_facade");
        EXPECT_EQ(calls[1].text, "DVO_DVC_PNL_SRV");
        EXPECT_EQ(calls[1].numbers, numbers{1});
        EXPECT_EQ(calls[2].function, "bmc_mc_send_sync_message");
        EXPECT_EQ(calls[2].text, "DVO_DVC_PNL_SRV");
        EXPECT_EQ(calls[2].numbers, (numbers{1, operation.func_id, length, 88}));
        EXPECT_EQ(testing::PrintToString(calls[2].bytes), testing::PrintToString(expected));
    }
}

TEST_F(facade, the_result_is_the_replys_or_minus_one) {
    const struct {
        const char* name;
        std::function<void()> script;
        int result;
    } rows[] = {
        {"all bytes differ", [this] { platform_.add_reply(reply_bytes(0x01020304)); }, 0x01020304},
        {"never ready", [this] { platform_.set_ready_after(1000000); }, -1},
        {"not sent", [this] { platform_.fail("bmc_mc_send_sync_message"); }, -1},
        {"empty reply", [this] { platform_.add_reply(""); }, -1},
        {"ends before the result", [this] { platform_.add_reply(std::string(80, '\0')); }, -1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        platform_.reset();
        row.script();
        for (const operation_row& operation : operations_) {
            const int expected = operation.func_id == TIMER_FUNCTION ? NO_RESULT : row.result;
            EXPECT_EQ(operation.call(), expected) << operation.func_id;
        }
    }
}

TEST_F(facade, notify_checks_until_the_service_is_ready) {
    const struct {
        unsigned long refusals;
        std::size_t checks, pauses, sends;
        int result;
    } rows[] = {
        {1023, 1024, 1023, 1, 0}, // the last check of all
        {1024, 1024, 1024, 0, -1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.refusals);
        platform_.reset();
        platform_.set_ready_after(row.refusals);
        platform_.add_reply(reply_bytes(0));
        std::string request = message_bytes(103, 0, {});
        std::string reply(88, '\x11');
        unsigned int capacity = 88;
        EXPECT_EQ(facade_.notify(103, &request[0], 88, &reply[0], &capacity), row.result);
        EXPECT_EQ(platform_.count("bmc_mc_check_facade"), row.checks);
        EXPECT_EQ(platform_.count("bmc_mc_send_sync_message"), row.sends);
        EXPECT_EQ(reply, row.sends == 1 ? reply_bytes(0) : std::string(88, '\x11'));
        EXPECT_EQ(platform_.count("emwOSWSleep"), row.pauses);
    }
    EXPECT_EQ(platform_.calls_of("emwOSWSleep").back().numbers, numbers{300});
}

TEST_F(facade, notify_sends_under_the_id_in_the_request_and_hides_a_failure) {
    platform_.fail("bmc_mc_send_sync_message");
    std::string request = "x" + message_bytes(-2, 0, {}); // not aligned
    char reply[12];
    unsigned int capacity = sizeof reply;
    EXPECT_EQ(facade_.notify(103, &request[1], 88, reply, &capacity), 0);
    const fake_call send = platform_.calls().back();
    EXPECT_EQ(send.numbers, (numbers{1, -2, 88, 12}));
    EXPECT_EQ(send.bytes, request.substr(1));
}

TEST_F(facade, operations_without_effect_call_nothing_and_keep_what_they_are_given) {
    platform_.forget_calls();
    facade_.dvc_pnl_dec_set_lcd_on();
    facade_.dvc_pnl_dec_set_lcd_off();
    unsigned char pixel = 7;
    unsigned char* capture = &pixel;
    int size = 8;
    int status = 9;
    EXPECT_EQ(facade_.dvc_pnl_dec_get_lcd_display_capture(capture, size), 0);
    EXPECT_EQ(facade_.dvc_pnl_dec_get_buzzer_status({}, status), 0);
    EXPECT_EQ(facade_.dvc_pnl_dec_pnlcmd_ctrl_wait_err(pixel, 1), 0);
    EXPECT_EQ((numbers{capture - &pixel, pixel, size, status}), (numbers{0, 7, 8, 9}));
    const int results[] = {facade_.initialize(),
                           facade_.dvc_pnl_dec_set_lcd_status({}),
                           facade_.dvc_pnl_dec_lcd_pm_mode_ctrl({}),
                           facade_.dvc_pnl_dec_set_buzzer_control({}, 1),
                           facade_.dvc_pnl_dec_set_buzzer_priority_control({}),
                           facade_.dvc_pnl_dec_set_buzzer_pattern_enable({}),
                           facade_.dvc_pnl_dec_set_buzzer_pattern_disable({}),
                           facade_.dvc_pnl_dec_set_buzzer_kind_enable({}),
                           facade_.dvc_pnl_dec_set_buzzer_kind_disable({}),
                           facade_.dvc_pnl_dec_set_buzzer_kind_volume(1, {}),
                           facade_.dvc_pnl_dec_set_fax_volume(1),
                           facade_.dvc_pnl_dec_stop_buzzer_type_ringer(),
                           facade_.dvc_pnl_dec_set_buzzer_control_off({})};
    EXPECT_EQ(std::count(std::begin(results), std::end(results), 0), 13);
    EXPECT_EQ(facade_.dvc_pnl_dec_request_remote_panel_connection({}), -1);
    EXPECT_EQ(facade_.dvc_pnl_dec_set_remote_panel_operation_lock({}), -1);
    EXPECT_TRUE(platform_.calls().empty());
}

/**
 * The only test that touches the process's own facade: it has a first use once. The early threads all find
 * none and wait for the guard, so that each of them would make one. The late ones use the facade's own
 * members before anything of the platform: locks in there would hide from the thread sanitizer a facade
 * handed over without order.
 */
TEST_F(facade, is_one_with_one_client_for_all_threads) {
    platform_.reset();
    platform_.add_reply(reply_bytes(33));
    sight_row sights[16];
    std::atomic<bool> is_there{false};
    std::vector<std::thread> threads;
    {
        const OSW_Thread_Guard guard;
        for (std::size_t i = 0; i < 8; ++i) {
            threads.emplace_back([&, i] { use_facade(sights[i], is_there); });
            threads.emplace_back([&, i] {
                while (!is_there.load(std::memory_order_relaxed)) {
                    std::this_thread::yield();
                }
                use_facade(sights[8 + i], is_there);
            });
        }
        EXPECT_TRUE(platform_.wait_for_calls("OSW_Thread_Guard",
                                             9)); // the test's own, and those of the early threads
    }
    for (std::thread& thread : threads) {
        thread.join();
    }

    for (const sight_row& sight : sights) {
        EXPECT_EQ(sight.facade, sights[0].facade);
        EXPECT_EQ(sight.reply, reply_bytes(33));
    }
    EXPECT_EQ(platform_.count("facade_template"), 1U);
    EXPECT_EQ(platform_.count("bmc_mc_client"), 1U);
    const auto mutexes = platform_.calls_of("OSW_Mutex_Semaphore");
    ASSERT_EQ(mutexes.size(), 1U);
    EXPECT_EQ(mutexes[0].numbers, numbers{1});
    platform_.forget_calls();
    EXPECT_EQ(dvc_pnl_dec_facade::dvc_pnl_dec_get_instance(), sights[0].facade);
    EXPECT_TRUE(platform_.calls().empty()) << "a later use takes a lock";
}

TEST(serialize, decodes_what_the_header_announces_up_to_an_unknown_id) {
    const struct {
        const char* name;
        std::int32_t pcnt;
        std::vector<record_row> records;
        int result, id, status;
    } rows[] = {
        {"id alone, the status stays reset", 1, {{0, MOST}}, 8, MOST, 1},
        {"records that the header does not announce", 0, {{0, 7}, {1, 2}}, 0, 1, 1},
        {"fewer announced than there are", 1, {{0, 7}, {1, 2}}, 8, 7, 1},
        {"negative count", -1, {{0, 7}}, 0, 1, 1},
        {"the last of one id counts", 3, {{1, 4}, {0, -9}, {1, 0}}, 8, -9, 0},
        {"stops at another id", 3, {{0, 7}, {9, 3}, {1, 2}}, 0, 7, 1},
        {"other id behind a greatest count", MOST, {{1, 6}, {LEAST, 0}}, 0, 1, 6},
        {"id whose low half is known", 1, {{0x10000, 7}}, 0, 1, 1},
    };
    dvc_pnl_dec_serialize serializer; // one for all rows: each begins from the reset values
    int value = 7;
    char record[8];
    int written = 0;
    serializer.serialize(DVC_PNL_DEC_PARAMETER_ID, &value, record, written);
    for (const auto& row : rows) {
        for (const std::size_t shift : {std::size_t(0), std::size_t(1)}) {
            SCOPED_TRACE(row.name);
            const std::string bytes = std::string(shift, 'x') + message_bytes(110, row.pcnt, row.records);
            // Ends with its last byte, so that the address sanitizer sees any step beyond.
            std::vector<char> memory(bytes.begin(), bytes.end());
            void* const message = memory.data() + shift;
            EXPECT_EQ(serializer.decode(static_cast<DVC_PNL_DEC_OBSERVER_COMMUNICATION_HEADER*>(message)),
                      row.result);
            EXPECT_EQ(serializer.decoded_id, row.id);
            EXPECT_EQ(serializer.decoded_status, row.status);
            EXPECT_EQ(serializer.get_serialize_cnt(), 1);
        }
    }
}

TEST(serialize, reads_the_id_before_it_writes) {
    std::string record = word_bytes(7) + word_bytes(300);
    int size = 1;
    EXPECT_EQ(dvc_pnl_dec_serialize().deserialize(&record[0], &record[0], size), 7);
    EXPECT_EQ(record, word_bytes(300) + word_bytes(300));
    EXPECT_EQ(size, 9);
}
