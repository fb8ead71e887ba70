#ifndef SIGNAL_BLOCK_H
#define SIGNAL_BLOCK_H

#include <csignal>

namespace velarion {

/** Blocks all signals for its lifetime: a thread made meanwhile leaves them to the host's other threads. */
class signal_block {
public:
    signal_block() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &former_);
    }
    ~signal_block() { pthread_sigmask(SIG_SETMASK, &former_, nullptr); }
    signal_block(const signal_block&) = delete;
    signal_block& operator=(const signal_block&) = delete;

private:
    sigset_t former_;
};

} // namespace velarion

#endif
