#!/usr/bin/env python3
"""
Starts programs in turns until their first frame: start_times.py ROUNDS NAME=COMMAND...

A program prints its phases as panel_simulator --timing does, "NAME  12.3 ms" a line, the last one its sum. The system tells
when a process began to a hundredth of a second alone: the first phase is taken from the clock of this process, which
starts it. Prints "NAME ROUND PHASE MILLISECONDS" with tabs, without a phase for all of them together.
"""
import re
import subprocess
import sys
import time

PHASE = re.compile(r"(\S.*?)\s+([0-9.]+) ms$")


def start(command):
    """Milliseconds until the first frame, and by phase."""
    begin = time.monotonic()
    whole, phases = None, []
    with subprocess.Popen(command.split(), stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True) as process:
        try:
            for phase in filter(None, map(PHASE.match, process.stdout)):
                name, milliseconds = phase.groups()
                if name == "process to frame":
                    whole = (time.monotonic() - begin) * 1e3
                    break
                phases.append((name, float(milliseconds)))
        finally:
            process.terminate()
    if whole is None or not phases:
        sys.exit(f"{command}: ended before its first frame")
    first = whole - sum(milliseconds for _, milliseconds in phases[1:])
    return whole, [(phases[0][0], first), *phases[1:]]


def main():
    rounds = int(sys.argv[1])
    programs = [word.split("=", 1) for word in sys.argv[2:]]
    for name, command in programs:
        start(command)  # files come into memory
    for number in range(rounds):
        for name, command in programs:
            whole, phases = start(command)
            for phase, milliseconds in [("", whole), *phases]:
                print(name, number, phase, f"{milliseconds:.2f}", sep="\t")


if __name__ == "__main__":
    main()
