"""What scripts/bench measures. Figures are by case, "work/who", and by round: {case: {round: figure}}."""
import json
import os
import re
import subprocess
import sys
from pathlib import Path

PROJECT = Path(__file__).resolve().parent.parent
# What stands before a program's name.
PROGRAMS = {
    "bench_texts": [],
    "bench_pictures": [],
    "bench_documents": [],
    "bench_requests": ["dbus-run-session", "--"],
    "bench_panel": [],
}
MILLISECOND = 1e6  # ns


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
            sys.exit(f"bench: {program} ended with {done.returncode}: {done.stderr.strip()}")
        return done.stdout

    def rates(self, program, pattern, rounds=None, before=(), **environment):
        """Nanoseconds of an operation, and how often it asks for memory, of a program's cases that match."""
        print(f"bench: {program}", file=sys.stderr)
        text = self.run(program, f"--benchmark_filter={pattern}", f"--benchmark_repetitions={rounds or self.rounds}",
                        f"--benchmark_min_time={self.seconds}", "--benchmark_enable_random_interleaving=true",
                        "--benchmark_format=json", before=[*PROGRAMS.get(program, []), *before], **environment)
        return take(text)

    def loading(self, *libraries):
        """Nanoseconds from dlopen() to the first text; libraries are "NAME=FILE"."""
        return take(self.run("bench_loading", 3 * self.rounds, *libraries))[0]

    def libraries(self):
        return (f"ours={self.library()}", f"plain={self.build}/lib/libpanel_view_support_plain.so")

    def sizes(self):
        """Bytes of both files."""
        return {"file_size/" + word.split("=")[0]: {0: Path(word.split("=")[1]).stat().st_size} for word in self.libraries()}

    def memory(self):
        """
        Kilobytes that all texts of a language take, by who gives them: for touching them alone, and with all that a
        process has for them that would not load the library.
        """
        resident = {}
        for _ in range(self.rounds):
            for program in ("touch_texts", "touch_translator"):
                for what in ("none", "all"):
                    resident.setdefault((program, what), []).append(int(self.run(program, what).split()[0]))

        def difference(more, less):
            return {i: a - b for i, (a, b) in enumerate(zip(resident[more], resident[less]))}
        translator = difference(("touch_translator", "all"), ("touch_translator", "none"))
        return {"memory/ours": difference(("touch_texts", "all"), ("touch_texts", "none")), "memory/translator": translator,
                "memory_whole/ours": difference(("touch_texts", "all"), ("touch_translator", "none")),
                "memory_whole/translator": translator}

    def starts(self):
        """
        Nanoseconds from the start of the simulator's process to its first frame, beside that of an empty window; and
        those of each phase as a case "start NAME/who".
        """
        text = self.run(sys.executable, PROJECT / "benchmarks" / "start_times.py", self.rounds,
                        f"ours={self.build}/bin/panel_simulator --timing --service none",
                        f"floor={self.build}/bin/bare_window", before=["env", "PYTHONDONTWRITEBYTECODE=1"])
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
    """Nanoseconds and allocations of a report of Google Benchmark, which a trace may stand before."""
    times, allocations = {}, {}
    start = text.find("{")
    for entry in json.loads(text[start:] if start >= 0 else '{"benchmarks": []}')["benchmarks"]:
        if entry["run_type"] == "iteration":
            name = entry["name"].replace("/real_time", "")
            times.setdefault(name, {})[entry["repetition_index"]] = 1e9 / entry["items_per_second"]
            if "allocations" in entry:
                allocations[name] = entry["allocations"]
    return times, allocations
