#!/usr/bin/env python3
"""Runs the benchmarks of a build folder and prints one table: ours beside the floor and each peer.

Every ratio is the median of the rounds' ratios, ours to the other's: cases of a program take turns in random order, so that
a change of the machine's speed meets all of them. Times are shown for orientation; the ratios count. Where nothing can
stand beside ours, the figure itself has the goal.
"""
import argparse
import json
import re
import statistics
import sys
from pathlib import Path

import bench_sizes
from measurements import PROGRAMS, PROJECT, Bench
from table_making import TableMaking

GOALS = PROJECT / "benchmarks" / "goals.tsv"
COUNTS = PROJECT / "benchmarks" / "instruction_counts.tsv"
# Cases whose instructions are counted, with the calls that make it worth while. Those of several processes vary.
COUNTED = {
    "bench_texts": {"text_hot/ours": 50, "text_any/ours": 2},
    "bench_pictures": {"picture_cached/ours": 5, "svg_first/ours": 20, "bitmap_warm/ours": 20, "cache_lookup/ours": 5},
    "bench_documents": {"xml/ours": 1, "dip2pixel/ours": 5, "pixeldip2pixel/ours": 5},
    "bench_panel": {"switch/ours": 5},
}
TOLERANCE = 0.02
IN_WORDS = {"floor": "the floor", "plain": "ordinary relocations", "translator": "the toolkit's translator", "icu": "ICU",
            "icon": "the toolkit's icon", "pixmap_cache": "the toolkit's pixmap cache", "dbus": "D-Bus"}


def read_rows(path):
    lines = path.read_text(encoding="utf-8").splitlines()
    return [line.split("\t") for line in lines[1:]]


def measure(bench, pattern):
    """Figures and allocations of all cases that match."""
    figures, allocations = {}, {}
    for program in PROGRAMS:
        times, counts = bench.rates(program, pattern)
        figures.update(times)
        allocations.update(counts)
    for work, measured in (("loading", lambda: bench.loading(*bench.libraries())), ("file_size", bench.sizes),
                           ("memory", bench.memory), ("start", bench.starts),
                           ("tables", lambda: TableMaking(bench.build).costs(min(bench.rounds, 3)))):
        if re.search(pattern, work + "/ours"):
            print(f"bench: {work}", file=sys.stderr)
            figures.update(measured())
    return figures, allocations


def in_words(work, value):
    if work == "file_size":
        return f"{value / 1e6:.2f} MB"
    if work.startswith("tables"):
        return f"{value:.0f} MB" if work == "tables_memory" else f"{value:.2f} s"
    if work.startswith("memory"):
        return f"{value:.0f} kB"
    for unit, size in (("ms", 1e6), ("us", 1e3)):
        if value >= size:
            return f"{value / size:.3g} {unit}"
    return f"{value:.3g} ns"


def rows_of(figures):
    """Of each line of the goals that was measured: title, work, against, ours, other's, ratio, goal, whether it is missed."""
    for work, title, against, goal in read_rows(GOALS):
        ours, other = figures.get(work + "/ours"), figures.get(f"{work}/{against}")
        if ours and against == "-":
            value = statistics.median(ours.values())
            is_missed = goal != "-" and value > float(goal.split()[0])
            yield title, work, "", value, None, None, goal, is_missed
        elif ours and other:
            ratio = statistics.median(ours[i] / other[i] for i in sorted(ours.keys() & other.keys()))
            is_missed = goal != "-" and ratio > float(goal)
            medians = (statistics.median(figure.values()) for figure in (ours, other))
            yield title, work, against, *medians, ratio, goal, is_missed


def phases_of(figures):
    """The phases of the simulator's start and their milliseconds, in their order."""
    return [(case.split("/")[0].split(" ", 1)[1], statistics.median(rounds.values()) / 1e6)
            for case, rounds in figures.items() if case.startswith("start ") and case.endswith("/ours")]


def print_table(figures, allocations):
    missed = 0
    print(f"{'work':52} {'ours':>9} {'against':>13} {'takes':>9} {'ratio':>6}  goal")
    shown = ""
    for title, work, against, ours, other, ratio, goal, is_missed in rows_of(figures):
        missed += is_missed
        verdict = "" if goal == "-" else f"<= {goal}" + (", missed" if is_missed else "")
        takes, ratio = ("", "") if other is None else (in_words(work, other), f"{ratio:.2f}")
        print(f"{title if title != shown else '':52} {in_words(work, ours):>9} {against:>13} {takes:>9} {ratio:>6}  {verdict}")
        shown = title
    for name in ("picture_cached/ours", "text_hot/ours"):
        if name in allocations:
            print(f"allocations of {name.split('/')[0]}: {allocations[name]:.2f}")
    phases = phases_of(figures)
    if phases:
        print("start: " + ", ".join(f"{name} {milliseconds:.1f} ms" for name, milliseconds in phases))
    print(f"goals missed: {missed}")


def print_markdown(figures):
    """The tables of docs/performance.md."""
    print("| Work | Takes | Against | Ratio | Goal, at most |\n|---|---|---|---|---|")
    for title, work, against, ours, _, ratio, goal, is_missed in rows_of(figures):
        verdict = "" if goal == "-" else f"{goal}, {'missed' if is_missed else 'met'}"
        ratio = "" if ratio is None else f"{ratio:.2f}"
        print(f"| {title} | {in_words(work, ours)} | {IN_WORDS.get(against, against)} | {ratio} | {verdict} |")
    phases = phases_of(figures)
    if phases:
        print("\n| Phase of the simulator's start | Takes |\n|---|---|")
        for name, milliseconds in phases:
            print(f"| {name} | {milliseconds:.1f} ms |")


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
    parser.add_argument("--from-json", type=Path, metavar="FILE", help="prints the figures of such a file, measures nothing")
    parser.add_argument("--markdown", action="store_true", help="prints the tables as docs/performance.md has them")
    parser.add_argument("--check", action="store_true",
                        help="compares the instructions of the hot operations with benchmarks/instruction_counts.tsv; "
                             "ends with 1 when one takes 2 %% more")
    parser.add_argument("--update", action="store_true", help="notes the instructions of the hot operations there")
    parser.add_argument("--sizes", nargs="*", choices=[[], *bench_sizes.SERIES], metavar="SERIES",
                        help="measures cost against size instead, of all series or these: " + ", ".join(bench_sizes.SERIES) +
                             "; writes benchmarks/sizes.tsv and the plots of docs/images")
    parser.add_argument("--plot", action="store_true", help="draws these plots from benchmarks/sizes.tsv, measures nothing")
    options = parser.parse_args()
    bench = Bench(options.build, options.rounds, options.seconds)
    if options.check or options.update:
        return check_counts(bench, options.update)
    if options.sizes is not None or options.plot:
        return bench_sizes.run(bench, None if options.plot else options.sizes or list(bench_sizes.SERIES))
    if options.from_json:
        figures, allocations = json.loads(options.from_json.read_text(encoding="utf-8")), {}
        for rounds in figures.values():
            for number in list(rounds):
                rounds[int(number)] = rounds.pop(number)
    else:
        figures, allocations = measure(bench, options.only)
    if options.json:
        options.json.write_text(json.dumps(figures, indent=1), encoding="utf-8")
    if options.markdown:
        print_markdown(figures)
    else:
        print_table(figures, allocations)
    return 0


if __name__ == "__main__":
    sys.exit(main())
