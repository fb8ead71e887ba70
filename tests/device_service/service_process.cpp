#include "service_process.h"

#include "device_client.h"

#include <csignal>
#include <string>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

service_process::service_process(const char* log_level) {
    int ends[2] = {};
    EXPECT_EQ(::pipe(ends), 0);
    const std::string ready = std::to_string(ends[1]);
    process_ = ::fork();
    if (process_ == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL); // a test that is ended from outside leaves no service behind
        ::execl(DEVICE_SERVICE, DEVICE_SERVICE, "--ready-fd", ready.c_str(), "--log-level", log_level,
                nullptr);
        ::_exit(127);
    }
    ::close(ends[1]);
    char line = 0;
    is_ready_ = ::read(ends[0], &line, 1) == 1;
    ::close(ends[0]);
}

service_process::~service_process() {
    if (process_ != 0) {
        end_by(SIGKILL);
    }
}

int service_process::end_by(int signal) {
    ::kill(process_, signal);
    return wait();
}

int service_process::wait() {
    int status = 0;
    ::waitpid(std::exchange(process_, 0), &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

velarion::device_message ask_service(std::int32_t func_id, const std::vector<std::int32_t>& values) {
    velarion::device_message reply;
    if (send_request(velarion::make_message(func_id, values), reply) != velarion::request_outcome::ANSWERED) {
        reply.result = -1;
    }
    return reply;
}
