/*
 * What a message, a key and a unit cost, as ratios to the least work that could deliver the same.
 * Run it through scripts/device-shell.
 */
#include "dvc_pnl_common_utility.h"
#include "dvc_pnl_rmg_language_resource.h"
#include "dvc_pnl_rmg_message_table.h"

#include <QApplication>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace {

constexpr int ROUNDS = 9;

volatile std::size_t g_sink; // keeps the work from being optimised away

/** The median time of a round in nanoseconds per item. */
double measure(std::size_t items, const std::function<std::size_t()>& round) {
    std::vector<double> times;
    for (int i = 0; i < ROUNDS; ++i) {
        const auto start = std::chrono::steady_clock::now();
        g_sink = round();
        const std::chrono::duration<double, std::nano> time = std::chrono::steady_clock::now() - start;
        times.push_back(time.count() / static_cast<double>(items));
    }
    std::nth_element(times.begin(), times.begin() + ROUNDS / 2, times.end());
    return times[ROUNDS / 2];
}

void print_ratio(const char* what, double time, const char* floor_name, double floor_time) {
    std::printf("%-34s %8.1f ns  %5.2f x  %s (%.1f ns)\n", what, time, time / floor_time, floor_name,
                floor_time);
}

std::vector<std::string> all_keys() {
    std::vector<std::string> keys;
    keys.reserve(static_cast<std::size_t>(dvc_pnl_rmg_imple_message_table_size));
    for (int i = 0; i < dvc_pnl_rmg_imple_message_table_size; ++i) {
        keys.push_back(std::to_string(dvc_pnl_rmg_impl_message_table[i].message_id));
    }
    std::rotate(keys.begin(), keys.begin() + 4000, keys.end());
    return keys;
}

void bench_messages(velarion::dvc_pnl_rmg_language_resource& language, const std::vector<std::string>& keys) {
    const int german = 49;
    const int german_column = 2;
    const double lookup = measure(keys.size(), [&] {
        std::size_t length = 0;
        for (const std::string& key : keys) {
            length += static_cast<std::size_t>(language.dvc_pnl_rmg_get_message(key.c_str(), german).size());
        }
        return length;
    });
    const double conversion = measure(keys.size(), [&] {
        std::size_t length = 0;
        for (int i = 0; i < dvc_pnl_rmg_imple_message_table_size; ++i) {
            const int row = dvc_pnl_rmg_impl_message_table[i].message_table_index;
            length += static_cast<std::size_t>(
                QString::fromUtf8(standard_language_message_table[row][german_column]).size());
        }
        return length;
    });
    print_ratio("message by key", lookup, "its UTF-8 conversion alone", conversion);
}

void bench_numbers(const std::vector<std::string>& keys) {
    const double ours = measure(keys.size(), [&] {
        std::size_t sum = 0;
        for (const std::string& key : keys) {
            int value = 0;
            velarion::dvc_pnl_common_utility::string_to_int(key, value);
            sum += static_cast<std::size_t>(value);
        }
        return sum;
    });
    const double toolkit = measure(keys.size(), [&] {
        std::size_t sum = 0;
        for (const std::string& key : keys) {
            sum += static_cast<std::size_t>(QString::fromLatin1(key.c_str()).toInt());
        }
        return sum;
    });
    print_ratio("string_to_int", ours, "the toolkit's conversion", toolkit);
}

void bench_units() {
    const auto sum_of = [](int first) {
        std::size_t sum = 0;
        for (int dp = first; dp < first + 1024; ++dp) {
            sum += static_cast<std::size_t>(velarion::dvc_pnl_common_utility::dip2pixel(
                dp, velarion::dvc_pnl_common_utility::ROUNDING_ROUND));
        }
        return sum;
    };
    const double table = measure(1024, [&] { return sum_of(0); });
    const double computed = measure(1024, [&] { return sum_of(100000); });
    print_ratio("dip2pixel from the table", table, "dip2pixel computed", computed);
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    const std::vector<std::string> keys = all_keys();
    bench_messages(*velarion::dvc_pnl_rmg_language_resource::dvc_pnl_rmg_create_instance(), keys);
    bench_numbers(keys);
    bench_units();
    velarion::dvc_pnl_rmg_language_resource::dvc_pnl_rmg_delete_instance();
    return 0;
}
