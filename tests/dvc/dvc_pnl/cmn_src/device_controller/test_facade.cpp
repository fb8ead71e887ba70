#include "dvc_pnl_dec_facade.h"

#include "dvc_pnl_dec_communication.h"
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

/** A facade of a test's own; the process's one has a first use only once. */
struct own_facade : dvc_pnl_dec_facade {};

class quiet_observer : public dvc_pnl_dec_key_event_observer {
public:
    explicit quiet_observer(bool* is_destroyed = nullptr)
        : is_destroyed_(is_destroyed) {}
    ~quiet_observer() override {
        if (is_destroyed_) {
            *is_destroyed_ = true;
        }
    }
    void dvc_pnl_dec_key_pressed(int) override { ADD_FAILURE() << "the library called an observer"; }
    void dvc_pnl_dec_key_released(int) override { ADD_FAILURE() << "the library called an observer"; }

private:
    bool* is_destroyed_;
};

std::int32_t low_word(const void* address) {
    return static_cast<std::int32_t>(reinterpret_cast<std::uintptr_t>(address) & 0xFFFFFFFFU);
}

class facade : public testing::Test {
protected:
    facade() { platform_.forget_calls(); }

    /** @return what the platform was asked since the last look, in order */
    std::vector<std::string> take_functions() {
        std::vector<std::string> functions;
        for (const FAKE_CALL& call : platform_.calls()) {
            functions.push_back(call.function);
        }
        platform_.forget_calls();
        return functions;
    }

    static fake_platform& fresh_platform() {
        fake_platform_instance().reset();
        return fake_platform_instance();
    }

    fake_platform& platform_ = fresh_platform();
    own_facade facade_;
    OSW_Timer_Control timer_{5};
    const std::int32_t timer_id_ = 1;
    quiet_observer observer_;
};

/** One requesting operation: how it is called, and what it must send. */
struct OPERATION {
    const char* name;
    std::function<int()> call;
    std::int32_t func_id;
    std::vector<RECORD> records;
};

class facade_requests : public facade {
protected:
    int run_timer(int first, int second, int third, int fourth) {
        facade_.dvc_pnl_dec_set_led_airprint_timer_proc(timer_, first, second, third, fourth);
        return NO_RESULT;
    }

    int set_led(int led, int status) {
        return facade_.dvc_pnl_dec_set_led_status(static_cast<DVC_PNL_DEC_LED_ID>(led),
                                                  static_cast<DVC_PNL_DEC_LED_STATUS_ID>(status));
    }

    std::vector<OPERATION> operations() {
        return {
            {"LED", [this] { return set_led(3, 2); }, 101, {{0, 3}, {1, 2}}},
            {"LED unknown to any service",
             [this] { return set_led(LEAST, MOST); },
             101,
             {{0, LEAST}, {1, MOST}}},
            {"all on", [this] { return facade_.dvc_pnl_dec_set_all_led_on(); }, 103, {}},
            {"all off", [this] { return facade_.dvc_pnl_dec_set_all_led_off(); }, 104, {}},
            {"timer",
             [this] { return run_timer(1, 2, 3, 4); },
             108,
             {{4, timer_id_}, {5, 1}, {6, 2}, {7, 3}, {8, 4}}},
            {"timer with extreme numbers",
             [this] { return run_timer(LEAST, -1, MOST, 0x01020304); },
             108,
             {{4, timer_id_}, {5, LEAST}, {6, -1}, {7, MOST}, {8, 0x01020304}}},
            {"observer",
             [this] { return facade_.dvc_pnl_dec_add_key_observer(&observer_); },
             109,
             {{9, low_word(&observer_)}}},
            {"no observer", [this] { return facade_.dvc_pnl_dec_add_key_observer(nullptr); }, 109, {{9, 0}}},
        };
    }
};

} // namespace

TEST_F(facade_requests, exact_bytes_and_order_of_steps) {
    platform_.add_reply(reply_bytes(0));
    for (const OPERATION& operation : operations()) {
        SCOPED_TRACE(operation.name);
        operation.call();
        const auto checks = platform_.calls_of("bmc_mc_check_facade");
        const auto sends = platform_.calls_of("bmc_mc_send_sync_message");
        EXPECT_EQ(take_functions(),
                  (std::vector<std::string>{"OSW_Timer_Control", "bmc_mc_check_facade",
                                            "bmc_mc_send_sync_message", "~OSW_Timer_Control"}));
        ASSERT_EQ(checks.size(), 1U);
        EXPECT_EQ(checks[0].text, "DVO_DVC_PNL_SRV");
        EXPECT_EQ(checks[0].numbers, std::vector<std::int64_t>{1});

        ASSERT_EQ(sends.size(), 1U);
        const std::string expected = request_bytes(operation.func_id, operation.records);
        EXPECT_EQ(testing::PrintToString(sends[0].bytes), testing::PrintToString(expected));
        const auto length = static_cast<std::int64_t>(88 + 8 * operation.records.size());
        EXPECT_EQ(sends[0].numbers, (std::vector<std::int64_t>{1, operation.func_id, length, 88}));
        EXPECT_EQ(sends[0].text, "DVO_DVC_PNL_SRV");
    }
}

TEST_F(facade_requests, the_same_observer_twice_is_two_requests) {
    facade_.dvc_pnl_dec_add_key_observer(&observer_);
    facade_.dvc_pnl_dec_add_key_observer(&observer_);
    const auto sends = platform_.calls_of("bmc_mc_send_sync_message");
    ASSERT_EQ(sends.size(), 2U);
    EXPECT_EQ(sends[0].bytes, sends[1].bytes);
}

TEST_F(facade_requests, result_is_the_replys) {
    for (const int result : {0, 1, -1, 0x01020304, 0x53023004, MOST, LEAST}) {
        platform_.reset();
        platform_.add_reply(reply_bytes(result));
        for (const OPERATION& operation : operations()) {
            SCOPED_TRACE(operation.name);
            const int expected = operation.func_id == 108 ? NO_RESULT : result;
            EXPECT_EQ(operation.call(), expected);
        }
    }
}

TEST_F(facade_requests, without_a_reply_the_result_is_minus_one) {
    const std::function<void()> situations[] = {
        [this] { platform_.set_never_ready(); }, [this] { platform_.fail("bmc_mc_send_sync_message"); },
        [this] { platform_.add_reply(std::string()); },
        [this] { platform_.add_reply(std::string(80, '\0')); }, // ends before the result
    };
    for (const auto& situation : situations) {
        platform_.reset();
        situation();
        for (const OPERATION& operation : operations()) {
            SCOPED_TRACE(operation.name);
            const int expected = operation.func_id == 108 ? NO_RESULT : -1;
            EXPECT_EQ(operation.call(), expected);
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
        {1, 2, 1, 1, 0},
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
            ASSERT_EQ(pause.numbers, std::vector<std::int64_t>{300});
        }
    }
}

TEST_F(facade, notify_sends_under_the_id_in_the_request_and_hides_a_failure) {
    for (const int func_id : {104, 0, -2, MOST}) {
        std::string request = "x" + request_bytes(func_id, {{0, 5}}); // not aligned
        char reply[12];
        unsigned int capacity = sizeof reply;
        platform_.forget_calls();
        platform_.fail("bmc_mc_send_sync_message");
        EXPECT_EQ(facade_.notify(103, &request[1], 96, reply, &capacity), 0);
        const auto sends = platform_.calls_of("bmc_mc_send_sync_message");
        ASSERT_EQ(sends.size(), 1U);
        EXPECT_EQ(sends[0].numbers, (std::vector<std::int64_t>{1, func_id, 96, 12}));
        EXPECT_EQ(sends[0].bytes, request.substr(1));
    }
}

TEST_F(facade, operations_without_effect_reach_nothing_and_leave_arguments_alone) {
    unsigned char* data = nullptr;
    unsigned char error = 0x5A;
    int size = 4711;
    facade_.dvc_pnl_dec_set_lcd_on();
    facade_.dvc_pnl_dec_set_lcd_off();
    const DVC_PNL_DEC_BUZZER_PATTERN pattern{-1};
    const DVC_PNL_DEC_BUZZER_KIND kind{MOST};
    const int results[] = {
        facade_.initialize(),
        facade_.dvc_pnl_dec_set_lcd_status(DVC_PNL_DEC_BRIGHT_STATUS{3}),
        facade_.dvc_pnl_dec_lcd_pm_mode_ctrl(DVC_PNL_DEC_PM_MODE{3}),
        facade_.dvc_pnl_dec_get_lcd_display_capture(data, size),
        facade_.dvc_pnl_dec_set_buzzer_control(pattern, 1),
        facade_.dvc_pnl_dec_set_buzzer_priority_control(pattern),
        facade_.dvc_pnl_dec_set_buzzer_pattern_enable(pattern),
        facade_.dvc_pnl_dec_set_buzzer_pattern_disable(pattern),
        facade_.dvc_pnl_dec_set_buzzer_kind_enable(kind),
        facade_.dvc_pnl_dec_set_buzzer_kind_disable(kind),
        facade_.dvc_pnl_dec_set_buzzer_kind_volume(7, kind),
        facade_.dvc_pnl_dec_set_fax_volume(7),
        facade_.dvc_pnl_dec_get_buzzer_status(pattern, size),
        facade_.dvc_pnl_dec_stop_buzzer_type_ringer(),
        facade_.dvc_pnl_dec_set_buzzer_control_off(pattern),
        facade_.dvc_pnl_dec_pnlcmd_ctrl_wait_err(error, 9),
    };
    for (const int result : results) {
        EXPECT_EQ(result, 0);
    }
    for (const int mode : {0, -1, MOST}) {
        EXPECT_EQ(facade_.dvc_pnl_dec_request_remote_panel_connection(DVC_PNL_DEC_RP_CONNECT_MODE{mode}), -1);
        EXPECT_EQ(facade_.dvc_pnl_dec_set_remote_panel_operation_lock(DVC_PNL_DEC_RP_OPERATION_MODE{mode}),
                  -1);
    }
    EXPECT_EQ(data, nullptr);
    EXPECT_EQ(error, 0x5A);
    EXPECT_EQ(size, 4711);
    EXPECT_TRUE(platform_.calls().empty());
}

TEST_F(facade, dispatch_overrides_the_base_and_touches_nothing) {
    facade_template& base = facade_;
    std::string message = message_bytes(110, 1, 0, {{0, 7}});
    const std::string before = message;
    base.dispatch(110, &message[0], static_cast<unsigned int>(message.size()), gen_ipc_msghdr());
    base.dispatch(-1, nullptr, 4000000000U, gen_ipc_msghdr());
    EXPECT_EQ(message, before);
    EXPECT_TRUE(platform_.calls().empty());
}

TEST_F(facade, owns_its_client) {
    std::unique_ptr<own_facade> owner(new own_facade);
    EXPECT_EQ(take_functions(), (std::vector<std::string>{"facade_template", "bmc_mc_client"}));
    owner.reset();
    EXPECT_EQ(take_functions(), (std::vector<std::string>{"~bmc_mc_client", "~facade_template"}));
}

TEST(key_event_observer, is_destroyed_through_the_interface) {
    bool is_destroyed = false;
    std::unique_ptr<dvc_pnl_dec_key_event_observer> observer(new quiet_observer(&is_destroyed));
    observer.reset();
    EXPECT_TRUE(is_destroyed);
}
