#include "dvc_pnl_dec_communication.h"
#include "dvc_pnl_dec_facade.h"
#include "message_layer.h"
#include "platform_codes.h"
#include "raw_connection.h"
#include "service_process.h"

#include <array>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using namespace panel_device;
using namespace velarion;

const std::uint64_t WATCHER = 1;
const std::uint64_t OTHER_HOST = 2;

class test_device_service : public scratch_service {
protected:
    static dvc_pnl_dec_facade& facade() { return *dvc_pnl_dec_facade::dvc_pnl_dec_get_instance(); }

    static int set_alert(DVC_PNL_DEC_LED_STATUS_ID status) {
        return facade().dvc_pnl_dec_set_led_status(DVC_PNL_DEC_LED_ALERT, status);
    }

    static std::array<std::int32_t, STATUS_FIELD_COUNT> status() {
        raw_connection connection(OTHER_HOST);
        EXPECT_TRUE(connection.send(make_message(CONTROL_STATUS, {})));
        DEVICE_MESSAGE reply;
        EXPECT_TRUE(connection.receive(reply));
        std::array<std::int32_t, STATUS_FIELD_COUNT> values{};
        for (std::size_t i = 0; i < reply.records.size() && i < values.size(); ++i) {
            values[i] = reply.records[i].value;
        }
        return values;
    }

    static void order_fault(FAULT_KIND kind, std::int32_t value, std::int32_t requests) {
        raw_connection connection(OTHER_HOST);
        EXPECT_EQ(DEVICE_OK, connection.ask(make_message(CONTROL_SET_FAULT, {kind, value, requests})));
    }
};

TEST_F(test_device_service, the_facade_drives_the_leds) {
    service_process service;
    ASSERT_TRUE(service.is_ready());
    raw_connection watcher(WATCHER);
    ASSERT_TRUE(watcher.attach(ATTACH_EVENTS));
    EXPECT_EQ(DEVICE_OK, set_alert(DVC_PNL_DEC_LED_STATUS_BLINK_FAST));
    DEVICE_MESSAGE event;
    ASSERT_TRUE(watcher.wait_for_event(EVENT_LED, event));
    EXPECT_EQ(DVC_PNL_DEC_LED_ALERT, event.records.at(0).value);
    EXPECT_EQ(DVC_PNL_DEC_LED_STATUS_BLINK_FAST, event.records.at(1).value);
    EXPECT_EQ(DEVICE_UNKNOWN_LED, facade().dvc_pnl_dec_set_led_status(static_cast<DVC_PNL_DEC_LED_ID>(8),
                                                                      DVC_PNL_DEC_LED_STATUS_ON));
    EXPECT_EQ(DEVICE_OK, facade().dvc_pnl_dec_set_all_led_on());
    EXPECT_EQ(DEVICE_OK, facade().dvc_pnl_dec_set_all_led_off());
}

TEST_F(test_device_service, the_timer_procedure_really_runs) {
    service_process service;
    raw_connection watcher(WATCHER);
    ASSERT_TRUE(watcher.attach(ATTACH_EVENTS_AND_EDGES));
    OSW_Timer_Control timer(0);
    facade().dvc_pnl_dec_set_led_airprint_timer_proc(timer, 10, 10, 0, DVC_PNL_DEC_LED_STATUS_OFF);
    DEVICE_MESSAGE event;
    ASSERT_TRUE(watcher.wait_for_event(EVENT_LED_EDGE, event)); // comes by itself
    EXPECT_EQ(DVC_PNL_DEC_LED_PRINT_SERVICE, event.records.at(0).value);
    EXPECT_EQ(LED_STATUS_TIMER, event.records.at(1).value);
    facade().dvc_pnl_dec_set_led_airprint_timer_proc(timer, 10, 10, 3, DVC_PNL_DEC_LED_STATUS_ON);
    ASSERT_TRUE(watcher.wait_for_event(EVENT_LED, event)); // the start
    EXPECT_EQ(LED_STATUS_TIMER, event.records.at(1).value);
    ASSERT_TRUE(watcher.wait_for_event(EVENT_LED, event)); // the end
    EXPECT_EQ(DVC_PNL_DEC_LED_STATUS_ON, event.records.at(1).value);
}

TEST_F(test_device_service, ten_thousand_requests_of_four_threads) {
    service_process service;
    raw_connection watcher(WATCHER); // one that lags behind must not be in the way
    ASSERT_TRUE(watcher.attach(ATTACH_EVENTS));
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number) {
        threads.emplace_back([] {
            for (int turn = 0; turn < 2500; ++turn) {
                const auto request = static_cast<DVC_PNL_DEC_LED_ID>(turn % 10);
                const int expected = turn % 10 < LED_COUNT ? DEVICE_OK : DEVICE_UNKNOWN_LED;
                ASSERT_EQ(expected, facade().dvc_pnl_dec_set_led_status(request, DVC_PNL_DEC_LED_STATUS_ON));
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(10000, status()[STATUS_REQUESTS]);
    EXPECT_EQ(2000, status()[STATUS_REFUSED]);
}

TEST_F(test_device_service, requests_work_again_after_each_way_to_end) {
    for (const int signal : {SIGTERM, SIGINT, SIGKILL}) {
        SCOPED_TRACE(signal);
        service_process service;
        ASSERT_TRUE(service.is_ready());
        EXPECT_EQ(DEVICE_OK, set_alert(DVC_PNL_DEC_LED_STATUS_ON));
        EXPECT_EQ(signal == SIGKILL ? -SIGKILL : 0, service.end_by(signal));
        EXPECT_EQ(0, bmc_mc_client::bmc_mc_check_facade(DVC_PNL_DEC_SERVICE_NAME, 1));
        EXPECT_EQ(signal == SIGKILL, std::filesystem::exists(folder() + "/run/" + DVC_PNL_DEC_SERVICE_NAME));
    }
    service_process service;
    EXPECT_EQ(DEVICE_OK, set_alert(DVC_PNL_DEC_LED_STATUS_OFF));
    EXPECT_EQ(1, status()[STATUS_REQUESTS]);
}

TEST_F(test_device_service, a_service_that_dies_in_the_middle_of_a_request_is_an_error_to_its_sender) {
    {
        service_process service;
        order_fault(FAULT_DELAY, LONGEST_DELAY, 1);
        raw_connection watcher(WATCHER);
        ASSERT_TRUE(watcher.attach(ATTACH_EVENTS));
        std::thread sender([] { EXPECT_EQ(-1, set_alert(DVC_PNL_DEC_LED_STATUS_ON)); });
        DEVICE_MESSAGE event;
        EXPECT_TRUE(watcher.wait_for_event(EVENT_FAULT, event)); // the request has been received
        service.end_by(SIGKILL);
        sender.join();
    }
    for (const FAULT_KIND kind : {FAULT_CRASH, FAULT_CRASH_NOW}) {
        service_process service;
        raw_connection control(OTHER_HOST);
        const DEVICE_MESSAGE order = make_message(CONTROL_SET_FAULT, {kind, 0, 0});
        EXPECT_EQ(kind == FAULT_CRASH ? DEVICE_OK : -1, control.ask(order));
        if (kind == FAULT_CRASH) {
            EXPECT_EQ(-1, set_alert(DVC_PNL_DEC_LED_STATUS_ON));
        }
        EXPECT_EQ(-SIGKILL, service.wait());
    }
    service_process service;
    EXPECT_EQ(DEVICE_OK, set_alert(DVC_PNL_DEC_LED_STATUS_ON));
}

TEST_F(test_device_service, late_missing_and_invented_replies) {
    service_process service;
    order_fault(FAULT_DELAY, 50, 1);
    EXPECT_EQ(DEVICE_OK, set_alert(DVC_PNL_DEC_LED_STATUS_ON));
    order_fault(FAULT_FAIL, -12, 1);
    EXPECT_EQ(-12, set_alert(DVC_PNL_DEC_LED_STATUS_ON));
    order_fault(FAULT_DROP, 0, 1);
    EXPECT_EQ(-1, set_alert(DVC_PNL_DEC_LED_STATUS_ON));
    EXPECT_EQ(DEVICE_OK, set_alert(DVC_PNL_DEC_LED_STATUS_ON));
    order_fault(FAULT_DELAY, 4000, 1); // beyond the sender's patience: nobody may take it for another's
    EXPECT_EQ(-1, set_alert(DVC_PNL_DEC_LED_STATUS_ON));
    EXPECT_EQ(DEVICE_UNKNOWN_LED, facade().dvc_pnl_dec_set_led_status(static_cast<DVC_PNL_DEC_LED_ID>(-1),
                                                                      DVC_PNL_DEC_LED_STATUS_ON));
}

TEST_F(test_device_service, observers_go_with_their_process) {
    service_process service;
    raw_connection watcher(WATCHER);
    ASSERT_TRUE(watcher.attach(ATTACH_EVENTS));
    const DEVICE_MESSAGE registration = {
        DVC_PNL_DEC_FUNCTION_ADD_KEY_OBSERVER, DEVICE_OK, {{DVC_PNL_DEC_PARAMETER_OBSERVER, 42}}};
    raw_connection second(OTHER_HOST);
    EXPECT_EQ(DEVICE_OK, second.ask(registration));
    const pid_t host = ::fork();
    if (host == 0) {
        raw_connection connection(OTHER_HOST + 1);
        connection.ask(registration);
        ::pause();
        ::_exit(0);
    }
    DEVICE_MESSAGE event;
    ASSERT_TRUE(watcher.wait_for_event(EVENT_OBSERVER, event));
    ASSERT_TRUE(watcher.wait_for_event(EVENT_OBSERVER, event));
    EXPECT_EQ(2, status()[STATUS_OBSERVERS]);
    ::kill(host, SIGKILL);
    ::waitpid(host, nullptr, 0);
    do {
        ASSERT_TRUE(watcher.wait_for_event(EVENT_HOST_GONE, event));
    } while (event.records.at(1).value != host);
    EXPECT_EQ(1, status()[STATUS_OBSERVERS]);
}

TEST_F(test_device_service, starting_it_wrongly_is_told_clearly) {
    service_process first;
    ASSERT_TRUE(first.is_ready());
    service_process second;
    EXPECT_FALSE(second.is_ready());
    EXPECT_EQ(3, second.wait());
    EXPECT_EQ(2, service_process({"--log-level", "loud"}).wait());
    EXPECT_EQ(2, service_process({"--no-such-option"}).wait());
    EXPECT_EQ(2, service_process({"word"}).wait());
    EXPECT_EQ(2, service_process({"--ready-fd", "1x"}).wait());
    EXPECT_EQ(0, service_process({"--help"}).wait());
    EXPECT_EQ(DEVICE_OK, set_alert(DVC_PNL_DEC_LED_STATUS_ON)); // the first is not disturbed
}

TEST_F(test_device_service, panelctl_drives_and_watches_it) {
    service_process service;
    std::string output;
    EXPECT_EQ(0, run_panelctl("led set fax blink_slow", output));
    EXPECT_EQ(1, run_panelctl("led set 8 on 2>/dev/null", output));
    EXPECT_EQ(2, run_panelctl("led set nonsense on 2>/dev/null", output));
    EXPECT_EQ(2, run_panelctl("led set fax timer 2>/dev/null", output)); // shown, never set
    EXPECT_EQ(0, run_panelctl("led list --json", output));
    EXPECT_NE(std::string::npos, output.find("\"status\": \"blink_slow\""));
    EXPECT_EQ(0, run_panelctl("key press 7", output));
    EXPECT_EQ("key 7: 0 observers told\n", output);
    EXPECT_EQ(0, run_panelctl("service fail 6 1", output));
    EXPECT_EQ(1, run_panelctl("led all-on 2>/dev/null", output)); // result 6: unknown status
    EXPECT_EQ(0, run_panelctl("led all-on", output));
    EXPECT_EQ(0, run_panelctl("service status --json", output));
    EXPECT_NE(std::string::npos, output.find("\"requests\": 4,"));
    EXPECT_EQ(0, run_panelctl("service crash", output));
    EXPECT_EQ(-SIGKILL, service.wait());
    EXPECT_EQ(3, run_panelctl("service status 2>/dev/null", output));
}

TEST_F(test_device_service, panelctl_monitor_writes_a_line_per_event) {
    std::FILE* const monitor = ::popen(PANELCTL " monitor --json --count 3", "r");
    const service_process service; // the monitor waits for it
    char line[256] = "";
    ASSERT_NE(nullptr, std::fgets(line, sizeof line, monitor));
    EXPECT_STREQ("{\"event\":\"connected\"}\n", line);
    std::string output;
    EXPECT_EQ(0, run_panelctl("key release 9", output));
    ASSERT_NE(nullptr, std::fgets(line, sizeof line, monitor));
    EXPECT_NE(nullptr, std::strstr(line, "\"event\":\"host_came\"")) << line;
    ASSERT_NE(nullptr, std::fgets(line, sizeof line, monitor));
    EXPECT_STREQ("{\"event\":\"key\",\"key\":9,\"observers_told\":0,\"status\":\"released\"}\n", line);
    EXPECT_EQ(nullptr, std::fgets(line, sizeof line, monitor));
    EXPECT_EQ(0, ::pclose(monitor));
}

} // namespace
