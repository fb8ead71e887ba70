#include "process.h"

#include <cstdlib>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int CANNOT_RUN = 127;

std::string take_contents(int file) {
    std::string contents;
    char buffer[4096];
    lseek(file, 0, SEEK_SET);
    for (ssize_t count = 0; (count = read(file, buffer, sizeof buffer)) > 0;) {
        contents.append(buffer, static_cast<std::size_t>(count));
    }
    close(file);
    return contents;
}

[[noreturn]] void become(const std::vector<std::string>& command,
                         const std::map<std::string, std::string>& environment) {
    for (const auto& variable : environment) {
        setenv(variable.first.c_str(), variable.second.c_str(), 1);
    }
    std::vector<char*> words;
    for (const std::string& word : command) {
        words.push_back(const_cast<char*>(word.c_str()));
    }
    words.push_back(nullptr);
    execvp(words[0], words.data());
    _exit(CANNOT_RUN);
}

} // namespace

process_result run_process(const std::vector<std::string>& command,
                           const std::map<std::string, std::string>& environment) {
    const int output = memfd_create("output", MFD_CLOEXEC);
    const int errors = memfd_create("errors", MFD_CLOEXEC);
    const pid_t process = fork();
    if (process == 0) {
        dup2(output, STDOUT_FILENO);
        dup2(errors, STDERR_FILENO);
        become(command, environment);
    }
    int status = 0;
    waitpid(process, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), take_contents(output),
            take_contents(errors)};
}
