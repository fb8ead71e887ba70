/*
 * What loading the library costs in a fresh process: the time from dlopen() to the first text read from its
 * table, in turns with other builds of it, in the form of Google Benchmark's reports. The toolkit is loaded
 * beforehand, so that it does not count.
 *
 *   bench_loading ROUNDS NAME=LIBRARY...
 */
#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr char TABLE[] = "standard_language_message_table";
constexpr int SOME_TEXT = 20 * 8;

struct loading_cost {
    double nanoseconds = 0;
    double own_kilobytes = 0; ///< private dirty memory of the library's mappings
};

struct named_library {
    std::string name;
    std::string path;
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
    void* const handle = dlopen(library.c_str(), RTLD_NOW);
    void* const table = handle ? dlsym(handle, TABLE) : nullptr;
    if (!table) {
        std::fprintf(stderr, "bench_loading: %s\n", dlerror());
        _exit(1);
    }
    volatile std::size_t length = std::strlen(static_cast<const char* const*>(table)[SOME_TEXT]);
    cost.nanoseconds =
        std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - start).count();
    cost.own_kilobytes = own_kilobytes_of(library);
    _exit(length > 0 && write(output, &cost, sizeof cost) == sizeof cost ? 0 : 1);
}

/** One load in a process of its own. */
loading_cost measure_once(const std::string& library) {
    int ends[2];
    if (pipe(ends) != 0) {
        throw std::runtime_error("no pipe");
    }
    const pid_t child = fork();
    if (child == 0) {
        load_and_report(library, ends[1]);
    }
    close(ends[1]);
    loading_cost cost;
    const bool is_read = read(ends[0], &cost, sizeof cost) == sizeof cost;
    close(ends[0]);
    waitpid(child, nullptr, 0);
    if (!is_read) {
        throw std::runtime_error(library + " cannot be loaded");
    }
    return cost;
}

std::vector<named_library> libraries_of(char** words, int count) {
    std::vector<named_library> libraries;
    for (int i = 0; i < count; ++i) {
        const char* const sign = std::strchr(words[i], '=');
        char* const path = sign ? realpath(sign + 1, nullptr) : nullptr;
        if (!path) {
            throw std::runtime_error(std::string(words[i]) + " is no NAME=LIBRARY");
        }
        libraries.push_back({std::string(static_cast<const char*>(words[i]), sign), path});
        std::free(path);
    }
    return libraries;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: bench_loading ROUNDS NAME=LIBRARY...\n");
        return 2;
    }
    try {
        const std::vector<named_library> libraries = libraries_of(argv + 2, argc - 2);
        const int rounds = std::atoi(argv[1]);
        std::printf("{\"benchmarks\": [");
        const char* separator = "\n";
        for (int round = 0; round < rounds; ++round) {
            for (const named_library& library : libraries) {
                const loading_cost cost = measure_once(library.path);
                std::printf(
                    "%s{\"name\": \"loading/%s\", \"run_type\": \"iteration\", \"repetition_index\": %d, "
                    "\"items_per_second\": %.6g, \"own_kilobytes\": %.0f}",
                    separator, library.name.c_str(), round, 1e9 / cost.nanoseconds, cost.own_kilobytes);
                separator = ",\n";
            }
        }
        std::printf("\n]}\n");
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench_loading: %s\n", error.what());
        return 3;
    }
    return 0;
}
