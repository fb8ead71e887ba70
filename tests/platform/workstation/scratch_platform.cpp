#include "scratch_platform.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/wait.h>
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

int run_in_process(const std::function<bool()>& work, const std::string& errors) {
    return wait_for(start_process([&] {
        if (!errors.empty()) {
            ::dup2(::open(errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDERR_FILENO);
        }
        return work();
    }));
}

std::string read_bytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void write_bytes(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

std::vector<std::string> lines_of(const std::string& path) {
    std::ifstream file(path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        lines.push_back(line);
    }
    return lines;
}
