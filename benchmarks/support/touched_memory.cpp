#include "touched_memory.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <stdexcept>

namespace velarion {

namespace {

/** The kilobytes of a field of smaps_rollup. */
long rolled_up(const char* field) {
    std::ifstream rollup("/proc/self/smaps_rollup");
    std::string line;
    while (std::getline(rollup, line)) {
        if (line.compare(0, std::strlen(field), field) == 0) {
            return std::atol(line.c_str() + std::strlen(field));
        }
    }
    return -1;
}

} // namespace

std::vector<std::string> message_keys(const std::string& folder) {
    std::ifstream file(folder + "/texts.keys");
    std::vector<std::string> keys;
    for (std::string key; std::getline(file, key);) {
        keys.push_back(key);
    }
    if (keys.empty()) {
        throw std::runtime_error(folder + "/texts.keys cannot be read");
    }
    return keys;
}

void print_memory() {
    std::printf("%ld %ld\n", rolled_up("Rss:"), rolled_up("Private_Dirty:"));
}

} // namespace velarion
