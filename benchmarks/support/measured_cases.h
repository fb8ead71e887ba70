#ifndef MEASURED_CASES_H
#define MEASURED_CASES_H

#include <functional>
#include <string>

namespace velarion {

/**
 * What a benchmark program measures: cases named "work/who", of which one is "ours" and the others do the
 * same work for comparison ("floor", or a peer's name). The table of scripts/bench sets them side by side.
 */

/**
 * Adds a case.
 *
 * @param items  how many of the work's operations one call of @p run does
 * @param run    the operations; what it computes goes to keep()
 */
void add_case(const std::string& name, int items, std::function<void()> run);

/** The same, with what has to be so before each call and is not measured. */
void add_case(const std::string& name, int items, std::function<void()> prepare, std::function<void()> run);

/**
 * What counts as the time of a case: that of this thread at work, or that which passes during a call, the
 * median of the calls: another process that takes the processor away meets few of them.
 */
enum class measured_time { OF_THREAD, PASSING_MEDIAN };

/**
 * Measures the cases as the options of Google Benchmark say, or with "--count NAME CALLS" does @p CALLS calls
 * of one case between callgrind's marks, and nothing else.
 *
 * @return the exit code: 0, 1 an option is wrong, 2 there is no such case
 */
int run_cases(int argc, char** argv, measured_time time = measured_time::OF_THREAD);

/** Keeps the work behind a value from being optimised away. */
void keep(std::size_t value);

} // namespace velarion

#endif
