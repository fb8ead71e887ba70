/*
 * What the device service does for several hosts at once: requests per second and the time that each takes,
 * for processes that all request as fast as they are answered; beside them the same count of bytes to and fro
 * between as many processes and one that waits for all of them. Everything shares one processor, as in
 * bench_requests.
 *
 *   bench_hosts ROUNDS HOSTS...
 *
 * Prints "WORK HOSTS REQUESTS-PER-SECOND MEDIAN-NS SLOWEST-OF-HUNDRED-NS", a line for each round.
 */
#include "dvc_pnl_dec_communication.h"
#include "dvc_pnl_dec_facade.h"
#include "other_process.h"

#include <sched.h>
#include <sys/epoll.h>
#include <sys/mman.h>
#include <sys/socket.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using std::chrono::steady_clock;
using velarion::other_process;

constexpr std::size_t REQUEST_LENGTH = 104;
constexpr std::size_t REPLY_LENGTH = 88;
constexpr int REQUESTS = 20000; // of all hosts in a round
constexpr int FIRST_REQUESTS = 20;

/** What a host tells of its requests: in memory that all processes share. */
struct host_report {
    double nanoseconds[REQUESTS];
};

/** Memory that processes share with those that they start. */
class shared_reports {
public:
    explicit shared_reports(int hosts)
        : size_(sizeof(host_report) * static_cast<std::size_t>(hosts))
        , memory_(mmap(nullptr, size_, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)) {
        if (memory_ == MAP_FAILED) {
            throw std::runtime_error("no memory to share");
        }
    }
    shared_reports(const shared_reports&) = delete;
    shared_reports& operator=(const shared_reports&) = delete;
    ~shared_reports() { munmap(memory_, size_); }
    host_report& of(int host) { return static_cast<host_report*>(memory_)[host]; }

private:
    std::size_t size_;
    void* memory_;
};

/** Both ends of a connection; the ends that a process does not use close with the program. */
struct connection {
    int host = -1;
    int server = -1;
};

connection connect_pair() {
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_SEQPACKET, 0, ends) != 0) {
        throw std::runtime_error("no socket pair");
    }
    return {ends[0], ends[1]};
}

/** Answers whoever asks, as barely as a process can that waits for several. */
void serve_bare(const std::vector<connection>& connections) {
    constexpr int MOST_EVENTS = 64;
    const int waiting = epoll_create1(0);
    for (const connection& one : connections) {
        epoll_event interest = {};
        interest.events = EPOLLIN;
        interest.data.fd = one.server;
        epoll_ctl(waiting, EPOLL_CTL_ADD, one.server, &interest);
    }
    epoll_event events[MOST_EVENTS];
    char bytes[REQUEST_LENGTH];
    for (;;) {
        const int count = epoll_wait(waiting, events, MOST_EVENTS, -1);
        for (int i = 0; i < count; ++i) {
            if (recv(events[i].data.fd, bytes, sizeof bytes, 0) > 0) {
                send(events[i].data.fd, bytes, REPLY_LENGTH, MSG_NOSIGNAL);
            }
        }
    }
}

bool request_barely(int socket) {
    char bytes[REQUEST_LENGTH] = {};
    return send(socket, bytes, sizeof bytes, MSG_NOSIGNAL) == static_cast<ssize_t>(REQUEST_LENGTH) &&
           recv(socket, bytes, sizeof bytes, 0) == static_cast<ssize_t>(REPLY_LENGTH);
}

bool request_led() {
    return velarion::dvc_pnl_dec_facade::dvc_pnl_dec_get_instance()->dvc_pnl_dec_set_led_status(
               velarion::DVC_PNL_DEC_LED_ALERT, velarion::DVC_PNL_DEC_LED_STATUS_ON) == 0;
}

/** A host's life: says that it is connected, waits for the start, requests, and says that it is done. */
void be_host(const connection& control, host_report& report, int count,
             const std::function<bool()>& request) {
    char byte = 0;
    for (int i = 0; i < FIRST_REQUESTS; ++i) {
        if (!request()) {
            return;
        }
    }
    send(control.server, &byte, 1, MSG_NOSIGNAL);
    recv(control.server, &byte, 1, 0);
    for (int i = 0; i < count; ++i) {
        const auto start = steady_clock::now();
        if (!request()) {
            return;
        }
        report.nanoseconds[i] = std::chrono::duration<double, std::nano>(steady_clock::now() - start).count();
    }
    send(control.server, &byte, 1, MSG_NOSIGNAL);
}

void wait_for_all(const std::vector<connection>& controls) {
    char byte = 0;
    for (const connection& control : controls) {
        if (recv(control.host, &byte, 1, 0) != 1) {
            throw std::runtime_error("a host got no answer");
        }
    }
}

/** One round with so many hosts, of which each requests as told for its number. */
void measure(const char* work, int hosts, const std::function<bool(int host)>& request) {
    shared_reports reports(hosts);
    const int count = REQUESTS / hosts;
    std::vector<connection> controls;
    std::vector<std::unique_ptr<other_process>> processes;
    for (int host = 0; host < hosts; ++host) {
        const connection control = connect_pair();
        processes.push_back(std::make_unique<other_process>([&] {
            close(control.host);
            be_host(control, reports.of(host), count, [&] { return request(host); });
        }));
        close(control.server);
        controls.push_back(control);
    }
    wait_for_all(controls);
    const auto start = steady_clock::now();
    for (const connection& control : controls) {
        send(control.host, "", 1, MSG_NOSIGNAL);
    }
    wait_for_all(controls);
    const double seconds = std::chrono::duration<double>(steady_clock::now() - start).count();
    std::vector<double> all;
    for (int host = 0; host < hosts; ++host) {
        all.insert(all.end(), reports.of(host).nanoseconds, reports.of(host).nanoseconds + count);
        close(controls[static_cast<std::size_t>(host)].host);
    }
    if (all.empty()) {
        throw std::runtime_error("no host had a request to make");
    }
    std::sort(all.begin(), all.end());
    std::printf("%s %d %.0f %.0f %.0f\n", work, hosts, static_cast<double>(all.size()) / seconds,
                all[all.size() / 2], all[all.size() * 99 / 100]);
    std::fflush(stdout);
}

void measure_bare(int hosts) {
    std::vector<connection> connections;
    for (int host = 0; host < hosts; ++host) {
        connections.push_back(connect_pair());
    }
    {
        const other_process server([&] { serve_bare(connections); });
        measure("floor", hosts,
                [&](int host) { return request_barely(connections[static_cast<std::size_t>(host)].host); });
    }
    for (const connection& one : connections) {
        close(one.host);
        close(one.server);
    }
}

void stay_on_this_processor() {
    cpu_set_t processors;
    CPU_ZERO(&processors);
    CPU_SET(static_cast<unsigned int>(sched_getcpu()), &processors);
    sched_setaffinity(0, sizeof processors, &processors);
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: bench_hosts ROUNDS HOSTS...\n");
        return 2;
    }
    stay_on_this_processor();
    std::string folder = "/tmp/bench_hosts_XXXXXX";
    if (!mkdtemp(&folder[0])) {
        std::perror("bench_hosts: /tmp");
        return 3;
    }
    setenv("PANEL_PLATFORM_DIR", folder.c_str(), 1);
    int result = 0;
    try {
        const other_process service(
            [] { execl(DEVICE_SERVICE, DEVICE_SERVICE, "--log-level", "error", nullptr); });
        for (int round = 0; round < std::atoi(argv[1]); ++round) {
            for (int i = 2; i < argc; ++i) {
                measure("ours", std::atoi(argv[i]), [](int) { return request_led(); });
                measure_bare(std::atoi(argv[i]));
            }
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench_hosts: %s\n", error.what());
        result = 3;
    }
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
    return result;
}
