#!/usr/bin/env python3
"""Runs the benchmarks of a build folder and prints one table: ours beside the floor and each peer.

Every ratio is the median of the rounds' ratios, ours to the other's: cases of a program take turns in random order, so that
a change of the machine's speed meets all of them. Times are shown for orientation; the ratios count.
"""
import argparse
import json
import os
import re
import statistics
import subprocess
import sys
from pathlib import Path

PROJECT = Path(__file__).resolve().parent.parent
GOALS = PROJECT / "benchmarks" / "goals.tsv"
COUNTS = PROJECT / "benchmarks" / "instruction_counts.tsv"
PROGRAMS = {
    "bench_texts": [],
    "bench_pictures": [],
    "bench_documents": [],
    "bench_requests": ["dbus-run-session", "--"],
}
# Cases whose instructions are counted, with the calls that make it worth while. Those of several processes vary.
COUNTED = {
    "bench_texts": {"text_hot/ours": 50, "text_any/ours": 2},
    "bench_pictures": {"picture_cached/ours": 5, "svg_first/ours": 20, "bitmap_warm/ours": 20, "cache_lookup/ours": 5},
    "bench_documents": {"xml/ours": 1, "dip2pixel/ours": 5, "pixeldip2pixel/ours": 5},
}
TOLERANCE = 0.02


class Bench:
    def __init__(self, build, rounds, seconds):
        self.build = build.resolve()
        self.rounds = rounds
        self.seconds = seconds
        self.environment = dict(os.environ, QT_QPA_PLATFORM="offscreen",
                                PEER_CATALOGUES=str(self.build / "benchmarks" / "peers"))

    def run(self, program, *arguments, before=(), output=subprocess.PIPE):
        """The standard output of a program in the sample device."""
        command = [str(PROJECT / "scripts" / "device-shell"), "--build", str(self.build), "--", *before,
                   str(self.build / "bin" / program), *map(str, arguments)]
        done = subprocess.run(command, env=self.environment, stdout=output, stderr=subprocess.PIPE, text=True, check=False)
        if done.returncode != 0:
            sys.exit(f"bench: {program} ended with {done.returncode}: {done.stderr.strip()}")
        return done.stdout

    def rates(self, pattern):
        """Nanoseconds of an operation by case, a list of the rounds each; allocations by case."""
        times, allocations = {}, {}
        for program, before in PROGRAMS.items():
            print(f"bench: {program}", file=sys.stderr)
            text = self.run(program, f"--benchmark_filter={pattern}", f"--benchmark_repetitions={self.rounds}",
                            f"--benchmark_min_time={self.seconds}", "--benchmark_enable_random_interleaving=true",
                            "--benchmark_format=json", before=before)
            self.take(text, times, allocations)
        if re.search(pattern, "loading/ours"):
            print("bench: bench_loading", file=sys.stderr)
            self.take(self.run("bench_loading", 3 * self.rounds, *self.libraries()), times, allocations)
        return times, allocations

    def libraries(self):
        return (f"ours={self.build}/lib/libpanel_view_support.so", f"plain={self.build}/lib/libpanel_view_support_plain.so")

    @staticmethod
    def take(text, times, allocations):
        start = text.find("{")
        for entry in json.loads(text[start:] if start >= 0 else '{"benchmarks": []}')["benchmarks"]:
            if entry["run_type"] == "iteration":
                rounds = times.setdefault(entry["name"], {})
                rounds[entry["repetition_index"]] = 1e9 / entry["items_per_second"]
                if "allocations" in entry:
                    allocations[entry["name"]] = entry["allocations"]

    def sizes(self):
        """Bytes of both files."""
        return {"file_size/" + word.split("=")[0]: {0: Path(word.split("=")[1]).stat().st_size} for word in self.libraries()}

    def memory(self):
        """Kilobytes that touching all texts of a language takes, by who gives them."""
        resident = {}
        for who in ("none", "ours", "translator"):
            resident[who] = [int(self.run("touch_texts", who).split()[0]) for _ in range(self.rounds)]
        return {"memory/" + who: dict(enumerate(a - b for a, b in zip(resident[who], resident["none"])))
                for who in ("ours", "translator")}

    def count(self, program, case, calls):
        """Instructions of one operation."""
        report = self.build / "callgrind.out"
        command = ["valgrind", "--tool=callgrind", "--collect-atstart=no", f"--callgrind-out-file={report}"]
        items = int(self.run(program, "--count", case, calls, before=command).split()[-1])
        totals = re.search(r"^totals: (\d+)", report.read_text(encoding="utf-8", errors="replace"), re.MULTILINE)
        report.unlink()
        return int(totals.group(1)) / items


def read_rows(path):
    lines = path.read_text(encoding="utf-8").splitlines()
    return [line.split("\t") for line in lines[1:]]


def ratio_of(ours, other):
    return statistics.median(ours[i] / other[i] for i in sorted(ours.keys() & other.keys()))


def in_words(work, value):
    if work == "file_size":
        return f"{value / 1e6:.2f} MB"
    if work == "memory":
        return f"{value:.0f} kB"
    for unit, size in (("ms", 1e6), ("us", 1e3)):
        if value >= size:
            return f"{value / size:.3g} {unit}"
    return f"{value:.3g} ns"


def print_table(times, allocations):
    """The table. Returns how many goals are missed."""
    missed = 0
    print(f"{'work':52} {'ours':>9} {'against':>13} {'takes':>9} {'ratio':>6}  goal")
    shown = ""
    for work, title, against, goal in read_rows(GOALS):
        ours, other = times.get(work + "/ours"), times.get(f"{work}/{against}")
        if not ours or not other:
            continue
        ratio = ratio_of(ours, other)
        is_missed = goal != "-" and ratio > float(goal)
        missed += is_missed
        verdict = "" if goal == "-" else f"<= {goal}" + (", missed" if is_missed else "")
        print(f"{title if title != shown else '':52} {in_words(work, statistics.median(ours.values())):>9} {against:>13} "
              f"{in_words(work, statistics.median(other.values())):>9} {ratio:6.2f}  {verdict}")
        shown = title
    for name in ("picture_cached/ours", "text_hot/ours"):
        if name in allocations:
            print(f"allocations of {name.split('/')[0]}: {allocations[name]:.2f}")
    print(f"goals missed: {missed}")
    return missed


def check_counts(bench, is_update):
    """Compares instructions with those noted, or notes them. Returns the exit code."""
    known = {row[0]: float(row[1]) for row in read_rows(COUNTS)} if COUNTS.exists() else {}
    lines, result = ["case\tinstructions"], 0
    for program, cases in COUNTED.items():
        for case, calls in cases.items():
            now = bench.count(program, case, calls)
            lines.append(f"{case}\t{now:.1f}")
            change = now / known[case] - 1 if case in known else 0.0
            is_worse = change > TOLERANCE and not is_update
            result |= is_worse
            print(f"{case:24} {now:14.1f} instructions  {change:+7.1%}{'  more than noted' if is_worse else ''}")
    if is_update:
        COUNTS.write_text("\n".join(lines) + "\n", encoding="utf-8")
    return int(result)


def main():
    parser = argparse.ArgumentParser(prog="scripts/bench", description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", type=Path, default=PROJECT / "build" / "bench", help="build folder; default build/bench")
    parser.add_argument("--rounds", type=int, default=9, help="rounds of each case; default 9")
    parser.add_argument("--seconds", type=float, default=0.1, help="least time of a case in a round; default 0.1")
    parser.add_argument("--only", default=".", metavar="REGEX", help="cases whose names match, for instance text_")
    parser.add_argument("--json", type=Path, metavar="FILE", help="writes the rounds' figures too")
    parser.add_argument("--check", action="store_true",
                        help="compares the instructions of the hot operations with benchmarks/instruction_counts.tsv; "
                             "ends with 1 when one takes 2 %% more")
    parser.add_argument("--update", action="store_true", help="notes the instructions of the hot operations there")
    options = parser.parse_args()
    bench = Bench(options.build, options.rounds, options.seconds)
    if options.check or options.update:
        return check_counts(bench, options.update)
    times, allocations = bench.rates(options.only)
    for name, figures in (("file_size", bench.sizes), ("memory", bench.memory)):
        if re.search(options.only, name + "/ours"):
            times.update(figures())
    if options.json:
        options.json.write_text(json.dumps(times, indent=1), encoding="utf-8")
    print_table(times, allocations)
    return 0


if __name__ == "__main__":
    sys.exit(main())
