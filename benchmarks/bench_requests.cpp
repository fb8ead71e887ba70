/*
 * What a request through facade, message layer and service costs, as a ratio to a bare round trip of the
 * same bytes over the same kind of socket between two processes. Starts a service of its own in a scratch
 * folder. All processes share one processor: waking another one costs far more than what is measured, and
 * whether it happens is chance.
 */
#include "dvc_pnl_dec_communication.h"
#include "dvc_pnl_dec_facade.h"

#include <sched.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace {

constexpr int ROUNDS = 9;
constexpr int REQUESTS = 4000;
constexpr std::size_t REQUEST_LENGTH = 104;
constexpr std::size_t REPLY_LENGTH = 88;

/** The median time of a round in microseconds per request; negative when one failed. */
double measure(const std::function<bool()>& request) {
    std::vector<double> times;
    for (int round = 0; round < ROUNDS; ++round) {
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < REQUESTS; ++i) {
            if (!request()) {
                return -1;
            }
        }
        const std::chrono::duration<double, std::micro> time = std::chrono::steady_clock::now() - start;
        times.push_back(time.count() / REQUESTS);
    }
    std::nth_element(times.begin(), times.begin() + ROUNDS / 2, times.end());
    return times[ROUNDS / 2];
}

[[noreturn]] void answer_bare_requests(int socket) {
    char bytes[REQUEST_LENGTH];
    while (recv(socket, bytes, sizeof bytes, 0) > 0) {
        send(socket, bytes, REPLY_LENGTH, MSG_NOSIGNAL);
    }
    _exit(0);
}

double measure_bare_round_trips() {
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_SEQPACKET, 0, ends) != 0) {
        return -1;
    }
    const pid_t child = fork();
    if (child == 0) {
        close(ends[0]);
        answer_bare_requests(ends[1]);
    }
    close(ends[1]);
    char bytes[REQUEST_LENGTH] = {};
    const double time = measure([&] {
        return send(ends[0], bytes, sizeof bytes, MSG_NOSIGNAL) == static_cast<ssize_t>(REQUEST_LENGTH) &&
               recv(ends[0], bytes, sizeof bytes, 0) == static_cast<ssize_t>(REPLY_LENGTH);
    });
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return time;
}

double measure_requests() {
    const pid_t service = fork();
    if (service == 0) {
        execl(DEVICE_SERVICE, DEVICE_SERVICE, "--log-level", "error", nullptr);
        _exit(127);
    }
    velarion::dvc_pnl_dec_facade* const facade = velarion::dvc_pnl_dec_facade::dvc_pnl_dec_get_instance();
    const double time = measure([&] {
        return facade->dvc_pnl_dec_set_led_status(velarion::DVC_PNL_DEC_LED_ALERT,
                                                  velarion::DVC_PNL_DEC_LED_STATUS_ON) == 0;
    });
    kill(service, SIGTERM);
    waitpid(service, nullptr, 0);
    return time;
}

void stay_on_this_processor() {
    cpu_set_t processors;
    CPU_ZERO(&processors);
    CPU_SET(static_cast<unsigned int>(sched_getcpu()), &processors);
    if (sched_setaffinity(0, sizeof processors, &processors) != 0) {
        std::fprintf(stderr, "bench_requests: not bound to one processor; the ratio will vary\n");
    }
}

} // namespace

int main() {
    stay_on_this_processor();
    std::string folder = "/tmp/bench_requests_XXXXXX";
    if (!mkdtemp(&folder[0])) {
        std::perror("bench_requests: /tmp");
        return 3;
    }
    setenv("PANEL_PLATFORM_DIR", folder.c_str(), 1);
    const double bare = measure_bare_round_trips();
    const double request = measure_requests();
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
    if (bare < 0 || request < 0) {
        std::fprintf(stderr, "bench_requests: requests failed\n");
        return 3;
    }
    std::printf("%-34s %8.2f us  %5.2f x  bare socket round trip (%.2f us)\n",
                "LED request through the facade", request, request / bare, bare);
    return 0;
}
