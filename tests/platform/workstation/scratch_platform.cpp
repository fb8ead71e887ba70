#include "scratch_platform.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

scratch_platform::scratch_platform() {
    std::string name = testing::TempDir() + "/panel_platform_XXXXXX";
    scratch_ = ::mkdtemp(&name[0]) ? name : "";
    ::setenv("PANEL_PLATFORM_DIR", folder().c_str(), 1);
    ::unsetenv("PANEL_TRACE_FILE");
}

scratch_platform::~scratch_platform() {
    std::error_code ignored;
    std::filesystem::remove_all(scratch_, ignored);
}

pid_t start_process(const std::function<bool()>& work) {
    const pid_t process = ::fork();
    if (process == 0) {
        ::_exit(work() ? 0 : 1);
    }
    return process;
}

int wait_for(pid_t process) {
    int status = 0;
    ::waitpid(process, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

int run_in_process(const std::function<bool()>& work) {
    return wait_for(start_process(work));
}

void run_in_threads(const std::function<void(int number)>& work) {
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number) {
        threads.emplace_back(work, number);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

std::string read_bytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}
