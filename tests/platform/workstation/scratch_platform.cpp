#include "scratch_platform.h"

#include <cstdlib>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

scratch_platform::scratch_platform() {
    ::setenv("PANEL_PLATFORM_DIR", folder().c_str(), 1);
    ::unsetenv("PANEL_TRACE_FILE");
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
