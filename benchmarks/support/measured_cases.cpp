#include "measured_cases.h"

#include "allocation_counter.h"

#include <benchmark/benchmark.h>
#include <valgrind/callgrind.h>

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
        auto* const registered = benchmark::RegisterBenchmark(
            measured.name.c_str(), [&measured](benchmark::State& state) { measure(state, measured); });
        if (time == measured_time::PASSING) {
            registered->UseRealTime();
        }
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

} // namespace velarion
