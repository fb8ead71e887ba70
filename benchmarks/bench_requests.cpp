/*
 * What a request through facade, message layer and device service costs beside a bare round trip of the same
 * bytes over the same kind of socket between two processes, and beside D-Bus. Starts a service of its own in
 * a scratch folder. All processes share one processor: waking another one costs far more than what is
 * measured, and whether it happens is chance. Needs a session bus (dbus-run-session).
 */
#include "dvc_pnl_dec_communication.h"
#include "dvc_pnl_dec_facade.h"
#include "measured_cases.h"
#include "other_process.h"

#include <sched.h>
#include <sys/socket.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>

namespace {

using velarion::add_case;
using velarion::other_process;

constexpr std::size_t REQUEST_LENGTH = 104;
constexpr std::size_t REPLY_LENGTH = 88;
constexpr char BUS_NAME[] = "org.example.PanelBench";
constexpr char BUS_PATH[] = "/led";

void expect(bool is_true, const char* what) {
    if (!is_true) {
        throw std::runtime_error(what);
    }
}

void add_requests(const std::string& name, const std::function<void()>& request) {
    request();
    add_case("request/" + name, 1, request);
}

void answer_bare_requests(int socket) {
    char bytes[REQUEST_LENGTH];
    while (recv(socket, bytes, sizeof bytes, 0) > 0) {
        send(socket, bytes, REPLY_LENGTH, MSG_NOSIGNAL);
    }
}

int set_led(sd_bus_message* message, void*, sd_bus_error*) {
    std::uint32_t led = 0;
    std::uint32_t status = 0;
    const int result = sd_bus_message_read(message, "uu", &led, &status);
    return result < 0 ? result : sd_bus_reply_method_return(message, "i", 0);
}

void serve_bus() {
    static const sd_bus_vtable FUNCTIONS[] = {
        SD_BUS_VTABLE_START(0),
        SD_BUS_METHOD("SetLed", "uu", "i", set_led, SD_BUS_VTABLE_UNPRIVILEGED),
        SD_BUS_VTABLE_END,
    };
    sd_bus* bus = nullptr;
    if (sd_bus_open_user(&bus) < 0 ||
        sd_bus_add_object_vtable(bus, nullptr, BUS_PATH, BUS_NAME, FUNCTIONS, nullptr) < 0 ||
        sd_bus_request_name(bus, BUS_NAME, 0) < 0) {
        return;
    }
    for (;;) {
        const int result = sd_bus_process(bus, nullptr);
        if (result < 0 || (result == 0 && sd_bus_wait(bus, UINT64_MAX) < 0)) {
            return;
        }
    }
}

int call_bus(sd_bus* bus) {
    sd_bus_message* reply = nullptr;
    const int result =
        sd_bus_call_method(bus, BUS_NAME, BUS_PATH, BUS_NAME, "SetLed", nullptr, &reply, "uu", 1U, 1U);
    sd_bus_message_unref(reply);
    return result;
}

sd_bus* open_bus() {
    constexpr int TRIES = 100;
    constexpr useconds_t PAUSE = 20000;
    sd_bus* bus = nullptr;
    expect(sd_bus_open_user(&bus) >= 0, "there is no session bus; run it through dbus-run-session");
    for (int i = 0; i < TRIES && call_bus(bus) < 0; ++i) {
        usleep(PAUSE);
    }
    return bus;
}

void stay_on_this_processor() {
    cpu_set_t processors;
    CPU_ZERO(&processors);
    CPU_SET(static_cast<unsigned int>(sched_getcpu()), &processors);
    if (sched_setaffinity(0, sizeof processors, &processors) != 0) {
        std::fprintf(stderr, "bench_requests: not bound to one processor; the ratios will vary\n");
    }
}

int run(int argc, char** argv) {
    int ends[2];
    expect(socketpair(AF_UNIX, SOCK_SEQPACKET, 0, ends) == 0, "no socket pair");
    const other_process bare_peer([&] { answer_bare_requests(ends[1]); });
    const other_process bus_peer(serve_bus);
    const other_process service(
        [] { execl(DEVICE_SERVICE, DEVICE_SERVICE, "--log-level", "error", nullptr); });

    velarion::dvc_pnl_dec_facade* const facade = velarion::dvc_pnl_dec_facade::dvc_pnl_dec_get_instance();
    add_requests("ours", [facade] {
        expect(facade->dvc_pnl_dec_set_led_status(velarion::DVC_PNL_DEC_LED_ALERT,
                                                  velarion::DVC_PNL_DEC_LED_STATUS_ON) == 0,
               "the service gives no answer");
    });
    add_requests("floor", [socket = ends[0]] {
        char bytes[REQUEST_LENGTH] = {};
        expect(send(socket, bytes, sizeof bytes, MSG_NOSIGNAL) == static_cast<ssize_t>(REQUEST_LENGTH) &&
                   recv(socket, bytes, sizeof bytes, 0) == static_cast<ssize_t>(REPLY_LENGTH),
               "a bare round trip failed");
    });
    sd_bus* const bus = open_bus();
    add_requests("dbus", [bus] { expect(call_bus(bus) >= 0, "the bus gives no answer"); });
    return velarion::run_cases(argc, argv,
                               velarion::measured_time::PASSING_MEDIAN); // the other processes' too
}

} // namespace

int main(int argc, char** argv) {
    stay_on_this_processor();
    std::string folder = "/tmp/bench_requests_XXXXXX";
    if (!mkdtemp(&folder[0])) {
        std::perror("bench_requests: /tmp");
        return 3;
    }
    setenv("PANEL_PLATFORM_DIR", folder.c_str(), 1);
    int result = 3;
    try {
        result = run(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench_requests: %s\n", error.what());
    }
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
    return result;
}
