"""The options of scripts/bench."""
import argparse
import json
import re
from pathlib import Path

import bench_sizes
from measurements import PROJECT

GOALS = PROJECT / "benchmarks" / "goals.tsv"
EXIT_CODES = """exit code: 0, also when goals are missed; 1 --check finds a regression or a case that is not noted;
2 an option is wrong; 3 a program failed, or could not be built"""


def read_rows(path):
    lines = path.read_text(encoding="utf-8").splitlines()
    return [line.split("\t") for line in lines[1:]]


def select(pattern):
    """The rows of the goals of which a name matches: the work, ours, or what stands against it."""
    return [row for row in read_rows(GOALS)
            if any(pattern.search(name) for name in (row[0], row[0] + "/ours", f"{row[0]}/{row[2]}"))]


def read_figures(path):
    return {case: {int(number): float(figure) for number, figure in rounds.items()}
            for case, rounds in json.loads(path.read_text(encoding="utf-8")).items()}


# Kinds of options: argparse ends with 2 and the message.
def expression(word):
    try:
        return re.compile(word)
    except re.error as error:
        raise argparse.ArgumentTypeError(f"{word!r} is no regular expression: {error}") from error


def count(word):
    if not word.isdecimal() or int(word) < 1:
        raise argparse.ArgumentTypeError(f"{word!r} is no number from 1 on")
    return int(word)


def duration(word):
    try:
        seconds = float(word)
    except ValueError:
        seconds = 0
    if not 0 < seconds < float("inf"):
        raise argparse.ArgumentTypeError(f"{word!r} is no time above 0")
    return seconds


def file_to_write(word):
    if not Path(word).parent.is_dir() or Path(word).is_dir():
        raise argparse.ArgumentTypeError(f"{word!r} cannot be written: there is no such folder, or it is one")
    return Path(word)


def file_of_figures(word):
    try:
        return read_figures(Path(word))
    except (OSError, ValueError, AttributeError, TypeError) as error:
        raise argparse.ArgumentTypeError(f"{word!r} is no file of --json: {error}") from error


def series(word):
    if word not in bench_sizes.SERIES:
        raise argparse.ArgumentTypeError(f"{word!r} is none of " + ", ".join(bench_sizes.SERIES))
    return word


def build_folder(word):
    if not Path(word, "bin", "bench_texts").exists():
        raise argparse.ArgumentTypeError(f"there are no benchmarks in {word!r}; make them: "
                                         f"cmake --preset bench -B {word} && cmake --build {word}")
    return Path(word)


def parse(description):
    """What the command line says, checked; "rows" are the goals' rows that --only selects. Ends with 2 when it is wrong."""
    parser = argparse.ArgumentParser(prog="scripts/bench", description=description, epilog=EXIT_CODES, allow_abbrev=False,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", type=build_folder, metavar="DIR",
                        help="measures this build folder as it is; default: build/bench, which is built first")
    parser.add_argument("--rounds", type=count, default=9, help="rounds of each case; default 9")
    parser.add_argument("--seconds", type=duration, default=0.1, help="least time of a case in a round; default 0.1")
    parser.add_argument("--only", type=expression, default=".", metavar="REGEX",
                        help="rows of benchmarks/goals.tsv whose names match, for instance text_ or text_hot/gettext")
    parser.add_argument("--json", type=file_to_write, metavar="FILE", help="writes the rounds' figures too")
    parser.add_argument("--markdown", action="store_true", help="prints the tables as docs/performance.md has them")
    instead = parser.add_mutually_exclusive_group()
    instead.add_argument("--from-json", type=file_of_figures, metavar="FILE",
                         help="prints the figures of such a file, measures nothing")
    instead.add_argument("--check", action="store_true",
                         help="compares the instructions of the hot operations with benchmarks/instruction_counts.tsv; "
                              "ends with 1 when one takes 2 %% more or is not noted")
    instead.add_argument("--update", action="store_true", help="notes the instructions of the hot operations there")
    instead.add_argument("--sizes", nargs="*", type=series, metavar="SERIES",
                         help="measures cost against size instead, of all series or these: " + ", ".join(bench_sizes.SERIES) +
                              "; writes benchmarks/sizes.tsv and the plots of docs/images")
    instead.add_argument("--plot", action="store_true", help="draws these plots from benchmarks/sizes.tsv, measures nothing")
    options = parser.parse_args()
    options.rows = select(options.only)
    if not options.rows:
        parser.error(f"--only {options.only.pattern}: no name in benchmarks/goals.tsv matches")
    return options
