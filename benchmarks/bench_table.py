#!/usr/bin/env python3
"""Runs the benchmarks of a build folder and prints one table: ours beside the floor and each peer.

Every ratio is the median of the rounds' ratios, ours to the other's, and between which quarters of them it lies: in each
round the cases of a program take turns in random order, in a process of the round's own, so that a change of the machine's
speed meets all of them. Times are shown for orientation; the ratios count. Where nothing can stand beside ours, the figure
itself has the goal.
"""
import json
import statistics
import subprocess
import sys
from pathlib import Path

sys.dont_write_bytecode = True  # of the modules that follow

import bench_options
import bench_sizes
from measurements import PROGRAMS, PROJECT, Bench, add_round, fail
from table_making import TableMaking

COUNTS = PROJECT / "benchmarks" / "instruction_counts.tsv"
# Cases whose instructions are counted, with the calls that make it worth while. Those of several processes vary.
COUNTED = {
    "bench_texts": {"text_hot/ours": 50, "text_any/ours": 2},
    "bench_pictures": {"picture_cached/ours": 5, "picture_cached_sized/ours": 5, "svg_first/ours": 20, "bitmap/ours": 2,
                       "bitmap_warm/ours": 20, "preload/ours": 1, "cache_insertion/ours": 5, "cache_lookup/ours": 5},
    "bench_documents": {"xml/ours": 1, "dip2pixel/ours": 5, "pixeldip2pixel/ours": 5},
    "bench_panel": {"switch/ours": 5, "switch_mirrored/ours": 5},
}
TOLERANCE = 0.02
TABLE_ROUNDS = 3  # at most, of making the tables, which is slow and steady
IN_WORDS = {"floor": "the floor", "plain": "ordinary relocations", "translator": "the toolkit's translator", "icu": "ICU",
            "icon": "the toolkit's icon", "pixmap_cache": "the toolkit's pixmap cache", "dbus": "D-Bus"}


def cases_of(rows):
    return {f"{work}/{who}" for work, _, against, _ in rows for who in ("ours", against) if who != "-"}


def measure(bench, wanted, figures):
    """Adds the figures of the cases wanted."""
    timed = {case.replace("_allocations/", "/") for case in wanted}
    patterns = {}
    for program in PROGRAMS:
        cases = timed.intersection(bench.cases(program))
        if cases:
            patterns[program] = "^(" + "|".join(sorted(cases)) + ")(/real_time)?$"

    def is_wanted(work):
        return any(case.startswith(work) for case in wanted)

    for number in range(bench.rounds):
        print(f"bench: round {number + 1} of {bench.rounds}", file=sys.stderr)
        for program, pattern in patterns.items():
            measured = bench.round_of(program, pattern)
            add_round(figures, number, {case: figure for case, figure in measured.items() if case in wanted})
        if is_wanted("loading/"):
            add_round(figures, number, bench.loading(number, *bench.libraries()))
        if is_wanted("memory"):
            add_round(figures, number, bench.memory())
    if is_wanted("file_size/"):
        add_round(figures, 0, bench.sizes())
    for work, measured in (("start/", bench.starts),
                           ("tables", lambda: TableMaking(bench.build).costs(min(bench.rounds, TABLE_ROUNDS)))):
        if is_wanted(work):
            print(f"bench: {work.strip('/')}", file=sys.stderr)
            figures.update(measured())


def in_words(work, value):
    if work.endswith("_allocations"):
        return f"{value:.3g}"
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


def ratio_in_words(ratios):
    middle = f"{statistics.median(ratios):.2f}"
    if len(ratios) == 1:
        return middle
    low, _, high = statistics.quantiles(ratios, n=4, method="inclusive")
    return f"{middle} ({low:.2f}-{high:.2f})"


def rows_of(figures, rows):
    """Of each of the goals' rows: title, work, against, ours in words, other's, ratio, goal, whether it is missed."""
    for work, title, against, goal in rows:
        ours, other = figures.get(work + "/ours"), figures.get(f"{work}/{against}")
        common = sorted(ours.keys() & other.keys()) if ours and other else []
        takes, ratio, judged = "", "", None
        if ours and against == "-":
            judged = statistics.median(ours.values())
            against = ""
        elif common:
            ratios = [ours[i] / other[i] for i in common]
            takes, ratio = in_words(work, statistics.median(other.values())), ratio_in_words(ratios)
            judged = statistics.median(ratios)
        else:
            ratio = "not measured"
        is_missed = judged is not None and goal != "-" and judged > float(goal.split()[0])
        yield title, work, against, in_words(work, statistics.median(ours.values())) if ours else "", takes, ratio, goal, is_missed


def phases_of(figures, rows):
    """The phases of the simulator's start and their milliseconds, in their order, when the rows have the start."""
    return [(case.split("/")[0].split(" ", 1)[1], statistics.median(rounds.values()) / 1e6)
            for case, rounds in figures.items() if case.startswith("start ") and case.endswith("/ours")
            and any(work == "start" for work, *_ in rows)]


def print_table(figures, rows):
    missed = 0
    print(f"{'work':52} {'ours':>9} {'against':>13} {'takes':>9} {'ratio':>16}  goal")
    shown = ""
    for title, _, against, ours, takes, ratio, goal, is_missed in rows_of(figures, rows):
        missed += is_missed
        verdict = "" if goal == "-" else f"<= {goal}" + (", missed" if is_missed else "")
        print(f"{title if title != shown else '':52} {ours:>9} {against:>13} {takes:>9} {ratio:>16}  {verdict}".rstrip())
        shown = title
    phases = phases_of(figures, rows)
    if phases:
        print("start: " + ", ".join(f"{name} {milliseconds:.1f} ms" for name, milliseconds in phases))
    print(f"goals missed: {missed}")


def print_markdown(figures, rows):
    """The tables of docs/performance.md."""
    print("| Work | Takes | Against | Ratio | Goal, at most |\n|---|---|---|---|---|")
    for title, _, against, ours, _, ratio, goal, is_missed in rows_of(figures, rows):
        is_judged = goal != "-" and ratio != "not measured" and ours
        verdict = f"{goal}, {'missed' if is_missed else 'met'}" if is_judged else ""
        print(f"| {title} | {ours} | {IN_WORDS.get(against, against)} | {ratio} | {verdict} |")
    phases = phases_of(figures, rows)
    if phases:
        print("\n| Phase of the simulator's start | Takes |\n|---|---|")
        for name, milliseconds in phases:
            print(f"| {name} | {milliseconds:.1f} ms |")


def check_counts(bench, is_update):
    """Compares instructions with those noted, or notes them. Returns the exit code."""
    known = {row[0]: float(row[1]) for row in bench_options.read_rows(COUNTS)} if COUNTS.exists() else {}
    lines, result = ["case\tinstructions"], 0
    for program, cases in COUNTED.items():
        for case, calls in cases.items():
            now = bench.count(program, case, calls)
            lines.append(f"{case}\t{now:.1f}")
            change = now / known[case] - 1 if case in known else None
            verdict = ""
            if is_update:
                pass
            elif change is None or change > TOLERANCE:
                verdict = "not noted" if change is None else "more than noted"
                result = 1
            elif change < -TOLERANCE:
                verdict = "less than noted; --update notes it"
            shown = "" if change is None else f"{change:+.1%}"
            print(f"{case:26} {now:14.1f} instructions  {shown:>7}  {verdict}".rstrip(), flush=True)
    if is_update:
        COUNTS.write_text("\n".join(lines) + "\n", encoding="utf-8")
    return result


def build_all():
    """Builds the benchmarks in release mode, with the packages that they need."""
    (PROJECT / "build").mkdir(exist_ok=True)
    with open(PROJECT / "build" / "bench.log", "w", encoding="utf-8") as log:
        for command, output in ((["scripts/install-packages", "packages", "packages-bench"], sys.stderr),
                                (["cmake", "--preset", "bench"], log), (["cmake", "--build", "--preset", "bench"], log)):
            if subprocess.run(command, cwd=PROJECT, stdout=output, stderr=output, check=False).returncode != 0:
                log.flush()
                fail("\n".join([" ".join(command) + " failed", *Path(log.name).read_text(encoding="utf-8").splitlines()[-40:]]))


def table_of(options, bench):
    """Measures, or takes what was measured, and prints the table."""
    figures, rows = options.from_json, options.rows
    if figures is not None:
        works = {case.split("/")[0] for case in figures}
        rows = [row for row in rows if row[0] in works]
    else:
        figures = {}
        try:
            measure(bench, cases_of(rows), figures)
        finally:  # what was measured before a failure is kept
            if options.json:
                options.json.write_text(json.dumps(figures, indent=1), encoding="utf-8")
    (print_markdown if options.markdown else print_table)(figures, rows)


def main():
    options = bench_options.parse(__doc__)
    if options.plot:
        return bench_sizes.run(None, None)
    if not options.build and options.from_json is None:
        build_all()
    bench = Bench(options.build or PROJECT / "build" / "bench", options.rounds, options.seconds)
    if options.check or options.update:
        return check_counts(bench, options.update)
    if options.sizes is not None:
        return bench_sizes.run(bench, options.sizes or list(bench_sizes.SERIES))
    table_of(options, bench)
    return 0


if __name__ == "__main__":
    try:
        sys.exit(main())
    except (OSError, subprocess.SubprocessError, ImportError) as error:
        fail(error)
