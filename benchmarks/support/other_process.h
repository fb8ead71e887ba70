#ifndef OTHER_PROCESS_H
#define OTHER_PROCESS_H

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>

namespace velarion {

/** A process that ends with this one, at the latest. */
class other_process {
public:
    /** @param work  what it does; it ends when this returns */
    explicit other_process(const std::function<void()>& work)
        : id_(fork()) {
        if (id_ == 0) {
            prctl(PR_SET_PDEATHSIG, SIGTERM);
            work();
            _exit(127);
        }
    }
    other_process(const other_process&) = delete;
    other_process& operator=(const other_process&) = delete;
    ~other_process() {
        kill(id_, SIGTERM);
        waitpid(id_, nullptr, 0);
    }

private:
    pid_t id_;
};

} // namespace velarion

#endif
