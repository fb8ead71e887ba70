#include "progress.h"

#include <iostream>
#include <unistd.h>

namespace velarion {

namespace {

constexpr char CLEAR_LINE[] = "\r\033[K";

} // namespace

progress::progress(bool is_wanted)
    : is_terminal_(::isatty(STDERR_FILENO) == 1)
    , is_told_(is_wanted || is_terminal_) {}

progress::~progress() {
    clear();
}

void progress::tell(const std::string& step) {
    if (is_told_ && is_terminal_) {
        std::cerr << CLEAR_LINE << step << std::flush;
    } else if (is_told_) {
        std::cerr << step << '\n';
    }
}

void progress::clear() {
    if (is_terminal_) {
        std::cerr << CLEAR_LINE << std::flush;
    }
}

} // namespace velarion
