#include "measured_cases.h"

#include "allocation_counter.h"

#include <benchmark/benchmark.h>
#include <valgrind/callgrind.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>
#include <vector>

namespace velarion {

namespace {

struct measured_case {
    std::string name;
    int items;
    std::function<void()> prepare;
    std::function<void()> run;
};

std::vector<measured_case>& all_cases() {
    static std::vector<measured_case> cases;
    return cases;
}

void measure(benchmark::State& state, const measured_case& measured) {
    for (auto iteration : state) {
        static_cast<void>(iteration);
        if (measured.prepare) {
            state.PauseTiming();
            measured.prepare();
            state.ResumeTiming();
        }
        measured.run();
    }
    state.SetItemsProcessed(state.iterations() * measured.items);
    if (measured.prepare) {
        measured.prepare();
    }
    const std::size_t before = allocation_count();
    measured.run();
    state.counters["allocations"] = static_cast<double>(allocation_count() - before) / measured.items;
}

void measure_median(benchmark::State& state, const measured_case& measured) {
    std::vector<double> nanoseconds;
    for (auto iteration : state) {
        static_cast<void>(iteration);
        const auto start = std::chrono::steady_clock::now();
        measured.run();
        nanoseconds.push_back(
            std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - start).count());
    }
    const auto middle = nanoseconds.begin() + static_cast<std::ptrdiff_t>(nanoseconds.size() / 2);
    std::nth_element(nanoseconds.begin(), middle, nanoseconds.end());
    state.counters["items_per_second"] = 1e9 * measured.items / *middle;
}

int count(const char* name, int calls) {
    for (const measured_case& measured : all_cases()) {
        if (measured.name != name) {
            continue;
        }
        for (int i = 0; i <= calls; ++i) { // the first finds the caches cold and does not count
            if (measured.prepare) {
                measured.prepare();
            }
            if (i > 0) {
                CALLGRIND_TOGGLE_COLLECT;
            }
            measured.run();
            if (i > 0) {
                CALLGRIND_TOGGLE_COLLECT;
            }
        }
        std::printf("%d\n", calls * measured.items);
        return 0;
    }
    std::fprintf(stderr, "there is no case \"%s\"\n", name);
    return 2;
}

} // namespace

void keep(std::size_t value) {
    benchmark::DoNotOptimize(value);
}

void add_case(const std::string& name, int items, std::function<void()> run) {
    add_case(name, items, nullptr, std::move(run));
}

void add_case(const std::string& name, int items, std::function<void()> prepare, std::function<void()> run) {
    all_cases().push_back({name, items, std::move(prepare), std::move(run)});
}

int run_cases(int argc, char** argv, measured_time time) {
    if (argc == 4 && std::strcmp(argv[1], "--count") == 0) {
        return count(argv[2], std::atoi(argv[3]));
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    for (const measured_case& measured : all_cases()) {
        const auto how = time == measured_time::OF_THREAD ? measure : measure_median;
        auto* const registered = benchmark::RegisterBenchmark(
            measured.name.c_str(), [&measured, how](benchmark::State& state) { how(state, measured); });
        if (time == measured_time::PASSING_MEDIAN) {
            registered->UseRealTime();
        }
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

} // namespace velarion
