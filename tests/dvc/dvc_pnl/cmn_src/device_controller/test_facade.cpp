#include "dvc_pnl_dec_facade.h"

#include "dvc_pnl_dec_key_event_observer.h"
#include "fake_platform.h"
#include "message_bytes.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>

using namespace velarion;

namespace {

const int MOST = std::numeric_limits<int>::max();
const int LEAST = std::numeric_limits<int>::min();
const int NO_RESULT = 4711;
const int TIMER_FUNCTION = 108;

using numbers = std::vector<std::int64_t>;
using names = std::vector<std::string>;

/** A facade of a test's own; the process's one has a first use only once. */
struct own_facade : dvc_pnl_dec_facade {};

struct quiet_observer : dvc_pnl_dec_key_event_observer {
    void dvc_pnl_dec_key_pressed(int) override {}
    void dvc_pnl_dec_key_released(int) override {}
};

/** One requesting operation: how it is called, and what it must send. */
struct OPERATION {
    std::function<int()> call;
    std::int32_t func_id;
    std::vector<RECORD> records;
};

class facade : public testing::Test {
protected:
    facade() { platform_.forget_calls(); }

    static fake_platform& fresh_platform() {
        fake_platform_instance().reset();
        return fake_platform_instance();
    }

    /** @return what the platform was asked since the last look, in order */
    names take_functions() {
        names functions;
        for (const FAKE_CALL& call : platform_.calls()) {
            functions.push_back(call.function);
        }
        platform_.forget_calls();
        return functions;
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

    const OPERATION operations_[6] = {
        {[this] { return set_led(); }, 101, {{0, LEAST}, {1, MOST}}},
        {[this] { return facade_.dvc_pnl_dec_set_all_led_on(); }, 103, {}},
        {[this] { return facade_.dvc_pnl_dec_set_all_led_off(); }, 104, {}},
        {[this] { return run_timer(); },
         TIMER_FUNCTION,
         {{4, 1}, {5, LEAST}, {6, -1}, {7, MOST}, {8, 0x01020304}}},
        {[this] { return facade_.dvc_pnl_dec_add_key_observer(&observer_); }, 109, {{9, address_}}},
        {[this] { return facade_.dvc_pnl_dec_add_key_observer(nullptr); }, 109, {{9, 0}}},
    };
};

} // namespace

TEST_F(facade, requests_have_exact_bytes_and_steps_in_order) {
    for (const OPERATION& operation : operations_) {
        SCOPED_TRACE(operation.func_id);
        operation.call();
        const auto calls = platform_.calls();
        ASSERT_EQ(take_functions(), (names{"OSW_Timer_Control", "bmc_mc_check_facade",
                                           "bmc_mc_send_sync_message", "~OSW_Timer_Control"}));
        EXPECT_EQ(calls[1].text, "DVO_DVC_PNL_SRV");
        EXPECT_EQ(calls[1].numbers, numbers{1});
        const std::string expected = request_bytes(operation.func_id, operation.records);
        const auto length = static_cast<std::int64_t>(88 + 8 * operation.records.size());
        EXPECT_EQ(testing::PrintToString(calls[2].bytes), testing::PrintToString(expected));
        EXPECT_EQ(calls[2].numbers, (numbers{1, operation.func_id, length, 88}));
        EXPECT_EQ(calls[2].text, "DVO_DVC_PNL_SRV");
    }
}

TEST_F(facade, the_result_is_the_replys_or_minus_one) {
    const struct {
        const char* name;
        std::function<void()> script;
        int result;
    } rows[] = {
        {"success", [this] { platform_.add_reply(reply_bytes(0)); }, 0},
        {"all bytes differ", [this] { platform_.add_reply(reply_bytes(0x01020304)); }, 0x01020304},
        {"least", [this] { platform_.add_reply(reply_bytes(LEAST)); }, LEAST},
        {"never ready", [this] { platform_.set_ready_after(1000000); }, -1},
        {"not sent", [this] { platform_.fail("bmc_mc_send_sync_message"); }, -1},
        {"empty reply", [this] { platform_.add_reply(""); }, -1},
        {"ends before the result", [this] { platform_.add_reply(std::string(80, '\0')); }, -1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        platform_.reset();
        row.script();
        for (const OPERATION& operation : operations_) {
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
        {0, 1, 0, 1, 0},
        {1023, 1024, 1023, 1, 0}, // the last check of all
        {1024, 1024, 1024, 0, -1},
    };
    std::string request = request_bytes(103, {});
    for (const auto& row : rows) {
        SCOPED_TRACE(row.refusals);
        platform_.reset();
        platform_.set_ready_after(row.refusals);
        platform_.add_reply(reply_bytes(0));
        std::string reply(88, '\x11');
        unsigned int capacity = 88;
        EXPECT_EQ(facade_.notify(103, &request[0], 88, &reply[0], &capacity), row.result);
        EXPECT_EQ(platform_.count("bmc_mc_check_facade"), row.checks);
        EXPECT_EQ(platform_.count("bmc_mc_send_sync_message"), row.sends);
        EXPECT_EQ(reply, row.sends == 1 ? reply_bytes(0) : std::string(88, '\x11'));
        const auto pauses = platform_.calls_of("emwOSWSleep");
        EXPECT_EQ(pauses.size(), row.pauses);
        for (const FAKE_CALL& pause : pauses) {
            ASSERT_EQ(pause.numbers, numbers{300});
        }
    }
}

TEST_F(facade, notify_sends_under_the_id_in_the_request_and_hides_a_failure) {
    platform_.fail("bmc_mc_send_sync_message");
    for (const int func_id : {104, 0, -2, MOST}) {
        std::string request = "x" + request_bytes(func_id, {{0, 5}}); // not aligned
        char reply[12];
        unsigned int capacity = sizeof reply;
        EXPECT_EQ(facade_.notify(103, &request[1], 96, reply, &capacity), 0);
        const FAKE_CALL send = platform_.calls().back();
        EXPECT_EQ(send.numbers, (numbers{1, func_id, 96, 12}));
        EXPECT_EQ(send.bytes, request.substr(1));
    }
}

TEST_F(facade, operations_without_effect_reach_nothing_and_leave_arguments_alone) {
    unsigned char* data = nullptr;
    unsigned char error = 0x5A;
    int size = 4711;
    EXPECT_EQ(facade_.dvc_pnl_dec_get_lcd_display_capture(data, size), 0);
    EXPECT_EQ(facade_.dvc_pnl_dec_get_buzzer_status(DVC_PNL_DEC_BUZZER_PATTERN{-1}, size), 0);
    EXPECT_EQ(facade_.dvc_pnl_dec_pnlcmd_ctrl_wait_err(error, 9), 0);
    EXPECT_EQ(facade_.dvc_pnl_dec_request_remote_panel_connection(DVC_PNL_DEC_RP_CONNECT_MODE{0}), -1);
    EXPECT_EQ(facade_.dvc_pnl_dec_set_remote_panel_operation_lock(DVC_PNL_DEC_RP_OPERATION_MODE{0}), -1);
    EXPECT_EQ(data, nullptr);
    EXPECT_EQ(error, 0x5A);
    EXPECT_EQ(size, 4711);
    char message = 'm';
    static_cast<facade_template&>(facade_).dispatch(110, &message, 1, gen_ipc_msghdr());
    EXPECT_EQ(message, 'm');
    EXPECT_TRUE(platform_.calls().empty());
}

TEST_F(facade, owns_its_client) {
    auto owner = std::make_unique<own_facade>();
    EXPECT_EQ(take_functions(), (names{"facade_template", "bmc_mc_client"}));
    owner.reset();
    EXPECT_EQ(take_functions(), (names{"~bmc_mc_client", "~facade_template"}));
}
