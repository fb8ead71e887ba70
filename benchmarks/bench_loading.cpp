/*
 * What loading the library costs: the time of dlopen() in a fresh process, the memory that becomes the
 * process's own by it, and the size of the file. With several libraries the first is the peer of the
 * others. The toolkit is loaded beforehand, so that it does not count.
 */
#include <dlfcn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

namespace {

constexpr int RUNS = 15;

struct loading_cost {
    double microseconds = 0;
    double own_kilobytes = 0; ///< private dirty memory of the library's mappings
};

double own_kilobytes_of(const std::string& library) {
    std::ifstream maps("/proc/self/smaps");
    std::string line;
    bool is_library = false;
    double total = 0;
    while (std::getline(maps, line)) {
        unsigned long kilobytes = 0;
        if (line.find('-') < line.find(' ')) {
            is_library = line.find(library) != std::string::npos;
        } else if (is_library && std::sscanf(line.c_str(), "Private_Dirty: %lu kB", &kilobytes) == 1) {
            total += static_cast<double>(kilobytes);
        }
    }
    return total;
}

[[noreturn]] void load_and_report(const std::string& library, int output) {
    loading_cost cost;
    const auto start = std::chrono::steady_clock::now();
    if (dlopen(library.c_str(), RTLD_NOW) == nullptr) {
        std::fprintf(stderr, "bench_loading: %s\n", dlerror());
        _exit(1);
    }
    cost.microseconds =
        std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count();
    cost.own_kilobytes = own_kilobytes_of(library);
    _exit(write(output, &cost, sizeof cost) == sizeof cost ? 0 : 1);
}

/** One load in a process of its own. */
bool measure_once(const std::string& library, loading_cost& cost) {
    int ends[2];
    if (pipe(ends) != 0) {
        return false;
    }
    const pid_t child = fork();
    if (child == 0) {
        load_and_report(library, ends[1]);
    }
    close(ends[1]);
    const bool is_read = read(ends[0], &cost, sizeof cost) == sizeof cost;
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return is_read;
}

bool measure(const std::string& library, loading_cost& median) {
    std::vector<double> times;
    for (int i = 0; i < RUNS; ++i) {
        if (!measure_once(library, median)) {
            return false;
        }
        times.push_back(median.microseconds);
    }
    std::nth_element(times.begin(), times.begin() + RUNS / 2, times.end());
    median.microseconds = times[RUNS / 2];
    return true;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: bench_loading LIBRARY...\n");
        return 2;
    }
    loading_cost peer;
    for (int i = 1; i < argc; ++i) {
        loading_cost cost;
        struct stat file;
        char* const path = realpath(argv[i], nullptr);
        if (!path || stat(path, &file) != 0 || !measure(path, cost)) {
            std::fprintf(stderr, "bench_loading: %s cannot be loaded\n", argv[i]);
            return 3;
        }
        if (i == 1) {
            peer = cost;
        }
        std::printf("%-40s %8.0f us (%.2f x)  own memory %6.0f kB (%.2f x)  file %ld kB\n", argv[i],
                    cost.microseconds, cost.microseconds / peer.microseconds, cost.own_kilobytes,
                    cost.own_kilobytes / peer.own_kilobytes, static_cast<long>(file.st_size / 1024));
        std::free(path);
    }
    return 0;
}
