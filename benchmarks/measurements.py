"""What scripts/bench measures. Figures are by case, "work/who", and by round: {case: {round: figure}}."""
import json
import os
import re
import statistics
import subprocess
import sys
from pathlib import Path

PROJECT = Path(__file__).resolve().parent.parent
# What stands before a program's name. The bus and all that it starts share one processor.
PROGRAMS = {
    "bench_texts": [],
    "bench_pictures": [],
    "bench_documents": [],
    "bench_requests": ["taskset", "-c", str(min(os.sched_getaffinity(0))), "dbus-run-session", "--"],
    "bench_panel": [],
}
LOADS = 3  # of each library in a round
MILLISECOND = 1e6  # ns
REAL_TIME = "/real_time"  # Google Benchmark adds it to the names of cases that measure it


def fail(message):
    """Ends everything, for what is no regression and no wrong option."""
    print(f"bench: {message}", file=sys.stderr)
    sys.exit(3)


def add_round(figures, number, measured):
    for case, figure in measured.items():
        figures.setdefault(case, {})[number] = figure


class Bench:
    def __init__(self, build, rounds, seconds):
        self.build = build.resolve()
        self.rounds = rounds
        self.seconds = seconds
        self.environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", PEER_CATALOGUES=str(self.peers()))

    def peers(self):
        return self.build / "benchmarks" / "peers"

    def library(self):
        return self.build / "lib" / "libpanel_view_support.so"

    def run(self, program, *arguments, before=(), output=subprocess.PIPE, **environment):
        """The standard output of a program of the build, or of a script, in the sample device."""
        path = program if program.startswith("/") else str(self.build / "bin" / program)
        command = [str(PROJECT / "scripts" / "device-shell"), "--build", str(self.build), "--", *before, path,
                   *map(str, arguments)]
        done = subprocess.run(command, env={**self.environment, **environment}, stdout=output, stderr=subprocess.PIPE,
                              text=True, check=False)
        if done.returncode != 0:
            fail(f"{program} ended with {done.returncode}: {done.stderr.strip()}")
        return done.stdout

    def cases(self, program):
        """The names of a program's cases."""
        return self.run(program, "--benchmark_list_tests=true", before=PROGRAMS[program]).replace(REAL_TIME, "").split()

    def round_of(self, program, pattern, before=(), **environment):
        """One figure of each case that matches, all in random order: ns, and for "WORK_allocations/who" how often an operation
        asks for memory."""
        return take(self.run(program, f"--benchmark_filter={pattern}", f"--benchmark_min_time={self.seconds}",
                             "--benchmark_enable_random_interleaving=true", "--benchmark_format=json",
                             before=[*PROGRAMS.get(program, []), *before], **environment))

    def loading(self, number, *libraries):
        """Nanoseconds from dlopen() to the first text; libraries are "NAME=FILE" and change their order with the round."""
        return take(self.run("bench_loading", LOADS, *(reversed(libraries) if number % 2 else libraries)))

    def libraries(self):
        return (f"ours={self.library()}", f"plain={self.build}/lib/libpanel_view_support_plain.so")

    def sizes(self):
        """Bytes of both files."""
        return {"file_size/" + word.split("=")[0]: Path(word.split("=")[1]).stat().st_size for word in self.libraries()}

    def memory(self):
        """
        Kilobytes that all texts of a language take, by who gives them: for touching them alone, and with all that a
        process has for them that would not load the library.
        """
        resident = {(program, what): int(self.run(program, what).split()[0])
                    for program in ("touch_texts", "touch_translator") for what in ("none", "all")}
        bare = resident["touch_translator", "none"]
        translator = resident["touch_translator", "all"] - bare
        return {"memory/ours": resident["touch_texts", "all"] - resident["touch_texts", "none"], "memory/translator": translator,
                "memory_whole/ours": resident["touch_texts", "all"] - bare, "memory_whole/translator": translator}

    def starts(self):
        """
        Nanoseconds from the start of the simulator's process to its first frame, beside that of an empty window; and
        those of each phase as a case "start NAME/who".
        """
        text = self.run(sys.executable, PROJECT / "benchmarks" / "start_times.py", self.rounds,
                        f"ours={self.build}/bin/panel_simulator --timing --service none",
                        f"floor={self.build}/bin/bare_window")
        figures = {}
        for who, number, phase, milliseconds in (line.split("\t") for line in text.splitlines()):
            case = f"start {phase}/{who}" if phase else f"start/{who}"
            figures.setdefault(case, {})[int(number)] = float(milliseconds) * MILLISECOND
        return figures

    def hosts(self, *counts):
        """Rows "who, hosts, requests per second, median ns, slowest of a hundred ns" of each round."""
        lines = self.run("bench_hosts", self.rounds, *counts).splitlines()
        return [(who, *map(float, figures)) for who, *figures in (line.split() for line in lines)]

    def count(self, program, case, calls):
        """Instructions of one operation."""
        report = self.build / "callgrind.out"
        command = ["valgrind", "--tool=callgrind", "--collect-atstart=no", f"--callgrind-out-file={report}"]
        items = int(self.run(program, "--count", case, calls, before=command).split()[-1])
        totals = re.search(r"^totals: (\d+)", report.read_text(encoding="utf-8", errors="replace"), re.MULTILINE)
        report.unlink()
        return int(totals.group(1)) / items


def take(text):
    """
    The figures of a report of Google Benchmark, which a trace may stand before; of a case that ran several times, the median.
    """
    figures = {}
    start = text.find("{")
    for entry in json.loads(text[start:] if start >= 0 else '{"benchmarks": []}')["benchmarks"]:
        name = entry["name"].replace(REAL_TIME, "")
        figures.setdefault(name, []).append(1e9 / entry["items_per_second"])
        if "allocations" in entry:
            figures.setdefault(name.replace("/", "_allocations/"), []).append(entry["allocations"])
    return {name: statistics.median(runs) for name, runs in figures.items()}
