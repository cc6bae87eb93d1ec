#!/usr/bin/env python3
"""Runs the measurements and writes the page that tells of them. Called by ./measure.

    measure.py PROGRAMS RESULTS ROOT

PROGRAMS: the folder with the built programs. RESULTS: where their results go, in files that are made anew. ROOT: of the
project, with docs/ and README.md.
"""

import json
import os
import pathlib
import resource
import subprocess
import sys
import time

import figures
import page

BENCHMARK_OPTIONS = [
    f"--benchmark_repetitions={figures.REPETITIONS}",
    "--benchmark_min_time=0.05",
    "--benchmark_enable_random_interleaving=true",
    "--benchmark_out_format=json",
]
PROGRAMS = ["panel", "page", "ini", "jet", "line"]


def busy_seconds():
    """What all processors have worked since the start of the computer."""
    with open("/proc/stat", encoding="ascii") as file:
        user, nice, system, _idle, _waiting, interrupts, later = map(int, file.readline().split()[1:8])
    return (user + nice + system + interrupts + later) / os.sysconf("SC_CLK_TCK")


def own_seconds():
    children = resource.getrusage(resource.RUSAGE_CHILDREN)
    own = resource.getrusage(resource.RUSAGE_SELF)
    return children.ru_utime + children.ru_stime + own.ru_utime + own.ru_stime


def command(programs, results, name):
    if name == "line":
        return [programs / "line/line_measure", results / "line.json"]
    words = [programs / name / f"{name}_bench"]
    if name == "panel":
        words += ["--samples", results / "samples.json"]
    return words + BENCHMARK_OPTIONS + [f"--benchmark_out={results / name}.json"]


def run(programs, results, name):
    """How long it took, and what others did on the computer meanwhile, in percent of one processor."""
    print(f"Measuring: {name}", flush=True)
    begin, busy, own = time.monotonic(), busy_seconds(), own_seconds()
    with open(results / f"{name}.log", "w", encoding="utf-8") as log:
        subprocess.run(command(programs, results, name), stdout=log, stderr=log, check=True)
    seconds = time.monotonic() - begin
    others = busy_seconds() - busy - (own_seconds() - own)
    return {"seconds": seconds, "others": max(0.0, others / seconds * 100)}


def main():
    programs, results, root = map(pathlib.Path, sys.argv[1:])
    results.mkdir(parents=True, exist_ok=True)
    for old in results.iterdir():
        old.unlink()
    runs = {name: run(programs, results, name) for name in PROGRAMS}
    (results / "runs.json").write_text(json.dumps(runs), encoding="utf-8")
    page.write(figures.load(results), root)
    print("Written: docs/measurements.md")


if __name__ == "__main__":
    try:
        main()
    except subprocess.CalledProcessError as failure:
        sys.exit(f"measure: {failure}; its output is beside the results")
