#include "dvc_pnl_dec_communication.h"
#include "dvc_pnl_dec_facade.h"
#include "message_socket.h"
#include "platform_codes.h"
#include "process.h"
#include "service_process.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using namespace velarion;

constexpr std::int32_t NO_REPLY = -1;
constexpr std::int64_t PATIENCE = 60000; // milliseconds until a test gives up

/** A service in use, or under attack; each test ends with the proof that it serves. */
class test_device_service : public scratch_service {
protected:
    void SetUp() override { ASSERT_TRUE(service_->is_ready()); }
    void TearDown() override { EXPECT_EQ(facade().dvc_pnl_dec_set_all_led_on(), DEVICE_OK); }

    static dvc_pnl_dec_facade& facade() { return *dvc_pnl_dec_facade::dvc_pnl_dec_get_instance(); }

    static int set_led(int led) {
        return facade().dvc_pnl_dec_set_led_status(DVC_PNL_DEC_LED_ID{led}, DVC_PNL_DEC_LED_STATUS_ON);
    }

    static void order_fault(fault_kind kind, std::int32_t value) {
        EXPECT_EQ(ask_service(CONTROL_SET_FAULT, {kind, value, 1}).result, DEVICE_OK);
    }

    /** A connection without the message layer's client, greeted already. */
    static file_descriptor connect() {
        file_descriptor socket;
        EXPECT_EQ(connect_to_service(DVC_PNL_DEC_SERVICE_NAME, socket), PLATFORM_OK);
        EXPECT_TRUE(wait_for_socket(socket.get(), false, monotonic_milliseconds() + PATIENCE));
        return socket;
    }

    static bool send(int socket, const std::vector<char>& bytes) {
        return wait_for_socket(socket, true, monotonic_milliseconds() + PATIENCE) &&
               ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL) >= 0;
    }

    std::unique_ptr<service_process> service_ = std::make_unique<service_process>();
};

TEST_F(test_device_service, the_timer_procedure_runs_by_itself_and_the_monitor_sees_it) {
    EXPECT_EQ(set_led(0), DEVICE_OK); // so that this process is no new host any more
    std::FILE* const monitor = ::popen("exec timeout 60 " PANELCTL " monitor --json --edges --count 5", "r");
    const auto next_line = [monitor] {
        char line[256] = "";
        return std::string(std::fgets(line, sizeof line, monitor) ? line : "no line");
    };
    EXPECT_EQ(next_line(), "{\"event\":\"connected\"}\n");
    EXPECT_EQ(ask_service(CONTROL_STATUS, {}).result, DEVICE_OK); // the monitor is attached by then
    OSW_Timer_Control timer(0);
    facade().dvc_pnl_dec_set_led_airprint_timer_proc(timer, 10, 60000, 0, DVC_PNL_DEC_LED_STATUS_ON);
    EXPECT_EQ(next_line(),
              "{\"event\":\"led\",\"led\":\"print_service\",\"lit\":true,\"status\":\"timer\"}\n");
    EXPECT_EQ(next_line(),
              "{\"event\":\"led_edge\",\"led\":\"print_service\",\"lit\":false,\"status\":\"timer\"}\n");
    service_->end_by(SIGKILL);
    EXPECT_EQ(next_line(), "{\"event\":\"disconnected\"}\n");
    service_ = std::make_unique<service_process>();
    EXPECT_EQ(next_line(), "{\"event\":\"connected\"}\n");
    EXPECT_EQ(::pclose(monitor), 0);
}

TEST_F(test_device_service, ten_thousand_requests_of_four_threads_and_one_of_a_forked_process) {
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number) {
        threads.emplace_back([] {
            for (int turn = 0; turn < 2500; ++turn) {
                ASSERT_EQ(set_led(turn % 10), turn % 10 < LED_COUNT ? DEVICE_OK : DEVICE_UNKNOWN_LED);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    const std::uint64_t host = host_number();
    const pid_t process = ::fork();
    if (process == 0) {
        ::_exit(set_led(0) == DEVICE_OK && host_number() != host ? 0 : 1);
    }
    int status = -1;
    ::waitpid(process, &status, 0);
    EXPECT_EQ(status, 0);
    const device_message reply = ask_service(CONTROL_STATUS, {});
    EXPECT_EQ(reply.records.at(STATUS_REQUESTS).value, 10001);
    EXPECT_EQ(reply.records.at(STATUS_REFUSED).value, 2000);
}

TEST_F(test_device_service, requests_work_again_after_each_way_to_end) {
    for (const int signal : {SIGTERM, SIGINT, SIGKILL}) {
        SCOPED_TRACE(signal);
        EXPECT_EQ(set_led(0), DEVICE_OK);
        EXPECT_EQ(service_->end_by(signal), signal == SIGKILL ? -SIGKILL : 0);
        EXPECT_EQ(bmc_mc_client::bmc_mc_check_facade(DVC_PNL_DEC_SERVICE_NAME, 1), 0);
        const std::string socket_file = scratch_.path("platform/run/") + DVC_PNL_DEC_SERVICE_NAME;
        EXPECT_EQ(std::filesystem::exists(socket_file), signal == SIGKILL);
        service_ = std::make_unique<service_process>();
    }
    order_fault(FAULT_CRASH, 0);
    EXPECT_EQ(set_led(0), NO_REPLY); // it has been received
    EXPECT_EQ(service_->wait(), -SIGKILL);
    service_ = std::make_unique<service_process>();
}

TEST_F(test_device_service, a_second_one_and_wrong_options_end_at_once) {
    service_process second;
    ASSERT_FALSE(second.is_ready());
    EXPECT_EQ(second.wait(), 3);
    EXPECT_EQ(run_process({DEVICE_SERVICE, "--log-level", "loud"}).exit_code, 2);
    EXPECT_EQ(run_process({DEVICE_SERVICE, "--ready-fd", "1x"}).exit_code, 2);
    EXPECT_EQ(run_process({DEVICE_SERVICE, "--ready-fd", "99"}).exit_code, 2); // not open
}

TEST_F(test_device_service, panelctl_drives_it) {
    const auto run = [](const char* arguments) {
        return run_process({"sh", "-c", std::string("exec " PANELCTL " ") + arguments});
    };
    EXPECT_EQ(run("service crash").exit_code, 0);
    EXPECT_EQ(service_->wait(), -SIGKILL);
    service_ = std::make_unique<service_process>();
    const struct {
        const char* arguments;
        int exit_code;
        const char* output; // a part of it
    } rows[] = {
        {"key release 9", 0, "key 9: 0 observers told\n"},
        {"led set fax blink_slow", 0, ""},
        {"led set 8 on", 1, ""},
        {"led set fax timer", 2, "off, on, blink_slow, blink_fast"}, // shown, never set
        {"led set foo on", 2, "alert, fax, print_service"},
        {"led list --json", 0, "\"status\": \"blink_slow\""},
        {"service fail 6 1", 0, ""},
        {"led all-on", 1, ""}, // result 6: unknown status
        {"service status --json", 0, "\"requests\": 3,"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.arguments);
        const process_result result = run(row.arguments);
        EXPECT_EQ(result.exit_code, row.exit_code) << result.errors;
        EXPECT_NE((result.output + result.errors).find(row.output), std::string::npos) << result.output;
    }
}

TEST_F(test_device_service, bytes_that_are_no_message_end_the_connection) {
    for (const std::size_t length : {1U, 71U, 72U, 88U, 104U, 4096U, 4097U, 100000U}) {
        SCOPED_TRACE(length);
        const file_descriptor socket = connect();
        EXPECT_TRUE(send(socket.get(), std::vector<char>(length, '\x5a')));
        char message[IPC_LONGEST_MESSAGE];
        ipc_header header;
        int code = PLATFORM_OK;
        while (code == PLATFORM_OK) { // the greeting
            ASSERT_TRUE(wait_for_socket(socket.get(), false, monotonic_milliseconds() + PATIENCE));
            code = receive_message(socket.get(), message, header);
        }
        EXPECT_EQ(code, PLATFORM_CONNECTION_LOST);
    }
}

TEST_F(test_device_service, a_client_that_never_reads_is_dropped) {
    const file_descriptor socket = connect();
    const std::vector<char> request = encode_message(make_message(103, {}), {});
    int sent = 0;
    while (sent < 1000000 && send(socket.get(), request)) {
        ++sent;
    }
    EXPECT_LT(sent, 1000000);
}

TEST_F(test_device_service, it_never_waits_for_who_reads_its_log) {
    int ends[2] = {};
    ASSERT_EQ(::pipe2(ends, O_CLOEXEC | O_NONBLOCK), 0);
    const file_descriptor reading(ends[0]);
    const file_descriptor writing(ends[1]);
    const file_descriptor errors(::dup(STDERR_FILENO));
    service_.reset();
    ::dup2(writing.get(), STDERR_FILENO);
    service_ = std::make_unique<service_process>("info");
    ::dup2(errors.get(), STDERR_FILENO);
    while (::write(writing.get(), "x", 1) == 1) {
    }
    ::fcntl(writing.get(), F_SETFL, 0); // for the service too
    for (int turn = 0; turn < 50; ++turn) {
        ASSERT_EQ(set_led(-1), DEVICE_UNKNOWN_LED);
    }
    EXPECT_EQ(::fcntl(writing.get(), F_GETFL) & O_NONBLOCK, 0);
    std::string log;
    while (log.find(" 50 lines left out") == std::string::npos) {
        ASSERT_TRUE(wait_for_socket(reading.get(), false, monotonic_milliseconds() + PATIENCE)) << log;
        char bytes[4096];
        log.append(bytes, static_cast<std::size_t>(::read(reading.get(), bytes, sizeof bytes)));
    }
}

TEST_F(test_device_service, without_standard_descriptors_the_log_goes_nowhere) {
    const char command[] = DEVICE_SERVICE " <&- >&- 2>&- & cd $PANEL_PLATFORM_DIR\n"
                                          "until [ -S run/DVO_DVC_PNL_SRV ]; do sleep 0.01; done\n"
                                          "kill $! && wait $! && cat run/*.lock && echo ended";
    EXPECT_EQ(run_process({"/bin/sh", "-c", command}, {{"PANEL_PLATFORM_DIR", scratch_.path("")}}).output,
              "ended\n");
}

TEST_F(test_device_service, connections_beyond_the_limit_wait_and_come_in_later) {
    std::vector<file_descriptor> connections(64);
    std::generate(connections.begin(), connections.end(), connect);
    EXPECT_EQ(bmc_mc_client::bmc_mc_check_facade(DVC_PNL_DEC_SERVICE_NAME, 1), 0);
    const process_result status = run_process({PANELCTL, "service"});
    EXPECT_EQ(status.exit_code, 3);
    EXPECT_NE(status.errors.find("runs as process"), std::string::npos) << status.errors;
    connections.clear(); // and the request at the end of the test is served
}

} // namespace
