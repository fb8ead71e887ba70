#include "service_process.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace {

[[noreturn]] void become_service(const std::vector<std::string>& options, int ready) {
    std::vector<std::string> words = {DEVICE_SERVICE, "--ready-fd", std::to_string(ready), "--log-level",
                                      "error"};
    words.insert(words.end(), options.begin(), options.end());
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(&word[0]);
    }
    arguments.push_back(nullptr);
    ::prctl(PR_SET_PDEATHSIG, SIGKILL); // a test that is ended from outside leaves no service behind
    ::execv(DEVICE_SERVICE, arguments.data());
    ::_exit(127);
}

} // namespace

service_process::service_process(const std::vector<std::string>& options) {
    int ends[2] = {};
    EXPECT_EQ(0, ::pipe(ends));
    process_ = ::fork();
    if (process_ == 0) {
        ::close(ends[0]);
        become_service(options, ends[1]);
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

scratch_service::scratch_service() {
    std::string name = testing::TempDir() + "/panel_service_XXXXXX";
    folder_ = ::mkdtemp(&name[0]) ? name : "";
    ::setenv("PANEL_PLATFORM_DIR", folder_.c_str(), 1);
}

scratch_service::~scratch_service() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

int run_panelctl(const std::string& arguments, std::string& output) {
    output.clear();
    std::FILE* const pipe = ::popen((PANELCTL " " + arguments).c_str(), "r");
    char buffer[512];
    for (std::size_t count = 0; (count = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;) {
        output.append(buffer, count);
    }
    const int status = ::pclose(pipe);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}
