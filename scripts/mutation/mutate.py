#!/usr/bin/python3
"""Breaks the library on purpose, one place at a time, and counts how many of these mutants the tests notice.

    scripts/mutation/mutate.py [--only PATH-PART] [--every N] [--again] [--report FILE]

    --only PATH-PART  mutants in files below src/ whose path contains this
    --every N         only each N-th mutant
    --again           only those that were not noticed the last time
    --report FILE     writes the report that docs/mutation.md is

Everything happens in build/mutation. All mutants are compiled into one build; an environment variable says which one acts, so
that a mutant costs no compiling but only the tests that come by it. A mutant is noticed when a test fails, crashes or
does not end. Needs python3-clang and what ./test needs.
"""

import argparse
import collections
import concurrent.futures
import json
import os
import pathlib
import re
import resource
import shutil
import subprocess
import sys
import time

from clang import cindex

import report
from find_mutants import Source

ROOT = pathlib.Path(__file__).resolve().parents[2]
HERE = ROOT / "build/mutation"
TREE = HERE / "tree"
BUILD = HERE / "build"
REACHED = HERE / "reached"
LAST = HERE / "results.json"
MOST_MEMORY = 4 << 30  # bytes; a mutant may fill any list without end


def copy_tree():
    """What git knows of the project, so that build folders stay out."""
    names = subprocess.run(["git", "ls-files", "-z"], cwd=ROOT, check=True, capture_output=True).stdout
    wanted = {name for name in names.decode().split("\0") if name}
    for name in sorted(wanted):
        target = TREE / name
        target.parent.mkdir(parents=True, exist_ok=True)
        if not target.exists() or target.read_bytes() != (ROOT / name).read_bytes():
            shutil.copy2(ROOT / name, target)


def load_sources(only):
    index = cindex.Index.create()
    arguments = ["-x", "c++", "-std=c++20", f"-I{ROOT}/src"]
    sources = []
    for path in sorted([*ROOT.glob("src/**/*.cpp"), *ROOT.glob("src/**/*.h")]):
        name = str(path.relative_to(ROOT))
        if only and only not in name:
            continue
        unit = index.parse(str(path), args=arguments)
        for problem in unit.diagnostics:
            if problem.severity >= cindex.Diagnostic.Error:
                sys.exit(f"{name}: {problem}")
        sources.append(Source(path, name, unit))
    return sources


def configure():
    flags = f"-std=c++20 -include {TREE}/scripts/mutation/mutants.h -w -Wno-narrowing -O1"
    subprocess.run(["cmake", "-S", TREE, "-B", BUILD, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=None",
                    f"-DCMAKE_CXX_FLAGS={flags}", "-DSERVOPANEL_QT=OFF", "-DSERVOPANEL_WERROR=OFF"],
                   check=True, stdout=subprocess.DEVNULL)


def build(sources):
    """Writes all sources with their mutants, builds them, and leaves out what cannot be compiled. The mutants."""
    without = collections.defaultdict(set)
    kept = collections.defaultdict(set)
    for attempt in range(1, 20):
        mutants = []
        for source in sources:
            made, used = source.mutants(len(mutants), without[source.name])
            mutants += made
            text = source.written(used, without[source.name], kept[source.name])
            target = TREE / source.name
            if target.read_bytes() != text:
                target.write_bytes(text)
        run = subprocess.run(["cmake", "--build", BUILD, "--", "-k", "0"], capture_output=True, text=True)
        if run.returncode == 0:
            return mutants, sum(len(lines) for lines in without.values())
        log = run.stdout + run.stderr
        (HERE / f"build{attempt}.log").write_text(log)
        found = False
        for name, line, what in set(re.findall(re.escape(str(TREE)) + r"/(src/[^:]+):(\d+):\d+: (error|note)", log)):
            lines = (TREE / name).read_bytes().split(b"\n")
            is_constant = re.search(rb"\bconst\b", lines[int(line) - 1]) and int(line) not in kept[name]
            if is_constant and any(source.name == name and int(line) in map(source.line_of, source.fixed)
                                   for source in sources):
                kept[name].add(int(line))
                found = True
            elif what == "error" and int(line) not in without[name]:
                without[name].add(int(line))
                found = True
        print(f"build {attempt}: {sum(map(len, without.values()))} lines without mutants, "
              f"{sum(map(len, kept.values()))} constants stay compile-time", flush=True)
        if not found:
            break
    sys.exit(f"The sources with mutants cannot be built, see {HERE}/build{attempt}.log")


def limit_memory():
    resource.setrlimit(resource.RLIMIT_AS, (MOST_MEMORY, MOST_MEMORY))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def run_test(program, seconds, **environment):
    """Whether all tests of the program passed; None when it did not end."""
    folder = HERE / "tmp" / str(os.getpid())
    folder.mkdir(parents=True, exist_ok=True)
    settings = dict(os.environ, GTEST_FAIL_FAST="1", GTEST_BRIEF="1", TMPDIR=str(folder), **environment)
    process = subprocess.Popen([program], cwd=program.parent, env=settings, stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL, start_new_session=True, preexec_fn=limit_memory)
    try:
        return process.wait(seconds) == 0
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, 9)
        process.wait()
        return None


def first_run():
    """For each test program its time and the mutants that it comes by."""
    shutil.rmtree(REACHED, ignore_errors=True)
    REACHED.mkdir(parents=True)
    programs = []
    for program in sorted(BUILD.glob("tests/*/*_test")):
        begun = time.monotonic()
        if not run_test(program, 600):
            sys.exit(f"{program.name} fails without any mutant")
        seconds = time.monotonic() - begun
        file = REACHED / program.name
        file.touch()
        run_test(program, 600, MUTANTS_REACHED=str(file))
        reached = {int(line) for line in file.read_text().split()}
        print(f"{program.name}: {seconds:.1f} s, comes by {len(reached)} mutants", flush=True)
        if reached:
            programs.append((seconds, program, reached))
    return sorted(programs)


def judge(mutant, programs):
    """How a mutant came to be noticed, or that it was not."""
    outcome = "never run"
    for seconds, program, reached in programs:
        if mutant.number not in reached:
            continue
        outcome = "survived"
        passed = run_test(program, 10 * seconds + 5, MUTANT=str(mutant.number))
        if passed is None:
            return "did not end"
        if not passed:
            return "noticed"
    return outcome


def key(mutant):
    return [mutant.file, mutant.kind, mutant.text, mutant.change]


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--only", default="")
    parser.add_argument("--every", type=int, default=1)
    parser.add_argument("--again", action="store_true")
    parser.add_argument("--report", type=pathlib.Path)
    options = parser.parse_args()

    HERE.mkdir(parents=True, exist_ok=True)
    copy_tree()
    sources = load_sources(options.only)
    configure()
    mutants, left_out = build(sources)
    programs = first_run()
    chosen = mutants[::options.every]
    if options.again:
        last = [entry["key"] for entry in json.loads(LAST.read_text())
                if entry["outcome"] in ("survived", "never run")]
        chosen = [mutant for mutant in chosen if key(mutant) in last]
    print(f"{len(mutants)} mutants, {len(chosen)} of them to be tried", flush=True)

    results = []
    begun = time.monotonic()
    with concurrent.futures.ProcessPoolExecutor(os.cpu_count()) as pool:
        futures = {pool.submit(judge, mutant, programs): mutant for mutant in chosen}
        for done, future in enumerate(concurrent.futures.as_completed(futures), 1):
            mutant = futures[future]
            results.append({"key": key(mutant), "line": mutant.line, "outcome": future.result()})
            if done % 200 == 0:
                print(f"{done} tried, {time.monotonic() - begun:.0f} s", flush=True)
    results.sort(key=lambda entry: (entry["key"][0], entry["line"], entry["key"]))
    LAST.write_text(json.dumps(results, ensure_ascii=False, indent=0) + "\n")
    text = report.report(results, left_out, time.monotonic() - begun)
    print(text)
    if options.report:
        options.report.write_text(text)


if __name__ == "__main__":
    main()
