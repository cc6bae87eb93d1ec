#!/usr/bin/python3
"""Breaks the library on purpose, one place at a time, and counts how many of these mutants the tests notice.

Everything happens in build/mutation. All mutants are compiled into one build; an environment variable says which one acts, so
that a mutant costs no compiling but only the tests that come by it. A mutant is noticed when a test fails, crashes or
does not end. A survivor by hand, with its number from build/mutation/results.json:

    MUTANT=12345 build/mutation/build/tests/basic/basic_test

Needs python3-clang-14 of the system's python3 and what ./test needs. CMAKE_CXX_COMPILER_LAUNCHER is heeded.
"""

import argparse
import collections
import concurrent.futures
import hashlib
import json
import math
import os
import pathlib
import pickle
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time

from clang import cindex

import find_mutants
import report
from find_mutants import Source

ROOT = pathlib.Path(__file__).resolve().parents[2]
HERE = ROOT / "build/mutation"
TREE = HERE / "tree"
BUILD = HERE / "build"
LAST = HERE / "results.json"
PROBLEM = re.compile(r"/tree/(src/[^:]+):(\d+):\d+: +(error|note|required from)")
LATE = re.compile(r"/tree/((?!src/)[^:\s]+):(\d+):\d+: +error: .*not usable in a constant expression")
CONSTANT = re.compile(r"\s*(inline |static )*constexpr ")
LEFT_OUT = HERE / "left_out.json"
# The tests that exercise the library. Those of hosts and adapters come by it as well, but expect less of it and cost more.
PROGRAMS = [f"{folder}_test" for folder in ("basic", "config", "display", "platform", "portable", "recording", "servo_menu",
                                            "servo_page_structure", "servo_page_values", "shell", "monkey", "one_failure",
                                            "traces")]
# Without its last statement a function may go on where it must not. The compiler would take it for granted that this
# does not happen, and leave the mutant out; so it crashes instead.
ENDS = "-fsanitize=return,unreachable -fsanitize-undefined-trap-on-error"
MOST_MEMORY = 1 << 30  # bytes; a mutant may fill any list without end
PARTS = 20  # of a run, each from all over the library
LONGEST_WAIT = 900  # seconds, for programs that stand still
LONGEST_FILTER = 120_000  # characters; an environment variable takes no more


def is_source(name):
    return name.startswith("src/") and name.endswith((".cpp", ".h"))


def write(name, data):
    """Files that stay the same keep their time, so that nothing is compiled anew for them."""
    target = TREE / name
    target.parent.mkdir(parents=True, exist_ok=True)
    if not target.exists() or target.read_bytes() != data:
        target.write_bytes(data)
        target.chmod((ROOT / name).stat().st_mode)


def copy_tree():
    """What git knows of the project, so that build folders stay out, but for the sources: these are written with mutants."""
    listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], cwd=ROOT, check=True,
                            capture_output=True).stdout
    names = {name for name in listed.decode().split("\0") if name and (ROOT / name).exists()}
    for name in sorted(names):
        if not is_source(name) or not (TREE / name).exists():
            write(name, (ROOT / name).read_bytes())
    for path in TREE.rglob("*"):
        if path.is_file() and str(path.relative_to(TREE)) not in names:
            path.unlink()


def load_source(path):
    name = str(path.relative_to(ROOT))
    unit = cindex.Index.create().parse(str(path), args=["-x", "c++", "-std=c++20", f"-I{ROOT}/src"])
    for problem in unit.diagnostics:
        if problem.severity >= cindex.Diagnostic.Error:
            raise SystemExit(f"{name}: {problem}")
    return Source(path, name, unit)


def load_sources(pool):
    paths = [path for path in sorted(ROOT.glob("src/**/*")) if is_source(str(path.relative_to(ROOT)))]
    state = hashlib.sha256()
    for path in [*paths, pathlib.Path(find_mutants.__file__)]:
        state.update(str(path).encode() + path.read_bytes())
    # Reading all of them takes minutes, and tests change more often than sources.
    known = HERE / "sources.pickle"
    if known.exists():
        digest, sources = pickle.loads(known.read_bytes())
        if digest == state.digest():
            return sources
    sources = list(pool.map(load_source, paths))
    known.write_bytes(pickle.dumps((state.digest(), sources)))
    return sources


def configure():
    subprocess.run(["cmake", "-S", TREE, "-B", BUILD, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=None",
                    f"-DCMAKE_CXX_FLAGS=-w -Wno-narrowing -O1 {ENDS}", "-DSERVOPANEL_QT=OFF", "-DSERVOPANEL_WERROR=OFF"],
                   check=True, stdout=subprocess.DEVNULL)


def make(targets):
    """What the compiler says when it fails, else nothing."""
    run = subprocess.run(["ninja", "-C", BUILD, f"-j{os.cpu_count()}", "-k", "0", *targets], capture_output=True, text=True)
    return "" if run.returncode == 0 else run.stdout + run.stderr


def unchanged(before, now):
    return {name for name, digest in now.items() if before.get(name) == digest}


def loosen(log):
    """Tables of tests and hosts that hold constants of the library are made when the program starts, as these are now.
    Whether there were any."""
    starts = collections.defaultdict(set)
    for name, line in LATE.findall(log):
        lines = (TREE / name).read_text().splitlines(keepends=True)
        starts[name] |= {max((i for i in range(int(line)) if CONSTANT.match(lines[i])), default=-1)} - {-1}
    for name, numbers in starts.items():
        lines = (TREE / name).read_text().splitlines(keepends=True)
        for number in numbers:
            lines[number] = lines[number].replace("constexpr", "const", 1)
        (TREE / name).write_text("".join(lines))
    return any(starts.values())


def build(sources, digests):
    """Writes all sources with their mutants, builds them, and leaves out what cannot be compiled. The mutants, and how many
    of each kind were left out."""
    without = collections.defaultdict(set)
    kept = collections.defaultdict(set)
    if LEFT_OUT.exists():
        last = json.loads(LEFT_OUT.read_text())
        for name in unchanged(last.get("sources", {}), digests):
            without[name] = set(last["without"].get(name, ()))
            kept[name] = set(last["kept"].get(name, ()))
    by_name = {source.name: source for source in sources}
    for attempt in range(1, 20):
        mutants = []
        first, left_out = 0, collections.Counter()
        for source in sources:
            # Left out ones keep their numbers: the other sources need not be compiled anew.
            made, used, count, compiled_in = source.mutants(first, without[source.name], kept[source.name])
            first += count
            left_out += compiled_in
            mutants += made
            text = source.written(used, kept[source.name])
            write(source.name, f'#include "{TREE}/scripts/mutation/mutants.h"\n#line 1\n'.encode() + text)
        log = make(["src/all"]) or make(PROGRAMS)
        if not log:
            LEFT_OUT.write_text(json.dumps({"sources": digests,
                                            "without": {name: sorted(lines) for name, lines in without.items()},
                                            "kept": {name: sorted(lines) for name, lines in kept.items()}}))
            return mutants, left_out
        (HERE / f"build{attempt}.log").write_text(log)
        if loosen(log):
            continue
        told = {(name, int(line), what) for name, line, what in PROBLEM.findall(log)}
        found = False
        for name, line, _ in told:
            needed = by_name[name].constants_at(line) - kept[name]
            found = found or bool(needed)
            kept[name] |= needed
        # Other lines only when no constant is to blame: what comes of it alone is gone next time.
        others = {(name, line) for name, line, what in told if what != "note" and line not in without[name]}
        if not found:
            for name, line in others:
                without[name].add(line)
            found = bool(others)
        print(f"build {attempt}: {sum(map(len, without.values()))} lines without mutants, "
              f"{sum(map(len, kept.values()))} constants stay compile-time", flush=True)
        if not found:
            break
    sys.exit(f"The sources with mutants cannot be built, see {HERE}/build{attempt}.log")


def run_tests(program, tests, seconds, **environment):
    """Whether the tests of the program passed; None when they took more processor time than this or stood still."""
    folder = HERE / "tmp" / str(os.getpid())
    shutil.rmtree(folder, ignore_errors=True)  # what a broken program left there must not fail the next one
    folder.mkdir(parents=True)
    settings = dict(os.environ, GTEST_FAIL_FAST="1", GTEST_BRIEF="1", TMPDIR=str(folder), **environment)
    names = ":".join(tests)
    if len(names) < LONGEST_FILTER:
        settings["GTEST_FILTER"] = names

    def limits():
        resource.setrlimit(resource.RLIMIT_AS, (MOST_MEMORY, MOST_MEMORY))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        resource.setrlimit(resource.RLIMIT_CPU, (seconds, seconds))

    process = subprocess.Popen([program], cwd=program.parent, env=settings, stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL, start_new_session=True, preexec_fn=limits)
    try:
        code = process.wait(LONGEST_WAIT)
        return None if code in (-signal.SIGXCPU, -signal.SIGKILL) else code == 0
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, signal.SIGKILL)
        process.wait()
        return None


def processor_time():
    """Of the programs that ran to their end so far."""
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    return used.ru_utime + used.ru_stime


def tests_of(program):
    listed = subprocess.run([program, "--gtest_list_tests"], check=True, capture_output=True, text=True).stdout
    suite, tests = "", []
    for line in listed.splitlines():
        name = line.split("#")[0].rstrip()
        if line.startswith("  "):
            tests.append(suite + name.strip())
        elif name.endswith("."):
            suite = name
    return tests


def first_run(program, test):
    """The processor time that a test takes, in seconds, and the mutants that it comes by."""
    begun = processor_time()
    if not run_tests(program, [test], 600):
        raise SystemExit(f"{program.name} {test} fails without any mutant")
    seconds = processor_time() - begun
    with tempfile.NamedTemporaryFile("r", dir=HERE) as file:
        run_tests(program, [test], 600, MUTANTS_REACHED=file.name)
        return program, test, seconds, {int(line) for line in file}


def first_runs(pool):
    """For each mutant that is come by: for each program its tests and their seconds."""
    begun = time.monotonic()
    futures = [pool.submit(first_run, program, test)
               for program in map(pathlib.Path, sorted(BUILD.glob("tests/*/*_test")))
               if program.name in PROGRAMS for test in tests_of(program)]
    reaching = collections.defaultdict(lambda: collections.defaultdict(list))
    for future in futures:
        program, test, seconds, reached = future.result()
        for number in reached:
            reaching[number][program].append((seconds, test))
    print(f"{len(futures)} tests without any mutant, {time.monotonic() - begun:.0f} s", flush=True)
    return reaching


def judge(number, folder, programs):
    """How a mutant came to be noticed, or that it was not. The tests of its own folder come first, then the quickest program:
    constants are come by in each test, but looked at there."""
    if not programs:
        return "never run"
    order = sorted((not program.name.startswith(f"{folder}_"), sum(seconds for seconds, _ in tests), program)
                   for program, tests in programs.items())
    for _, seconds, program in order:
        tests = [test for _, test in sorted(programs[program])]
        passed = run_tests(program, tests, math.ceil(10 * seconds + 5), MUTANT=str(number))
        if passed is None:
            return "did not end"
        if not passed:
            return "noticed"
    return "survived"


def keys(mutants):
    """What each mutant is known by as long as its source stays: file, kind, text and change; repeated ones are counted."""
    known = {}
    seen = collections.Counter()
    for mutant in mutants:
        key = (mutant.file, mutant.kind, mutant.text, mutant.change)
        seen[key] += 1
        if seen[key] > 1:
            key = (*key[:3], f"{key[3]} ({seen[key]})")
        known[mutant.number] = key
    return known


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--only", default="", metavar="PATH-PART", help="mutants in files whose path contains this")
    parser.add_argument("--kind", metavar="KIND", help="mutants of one kind, such as text or condition")
    parser.add_argument("--every", type=int, default=1, metavar="N", help="only each N-th mutant")
    parser.add_argument("--minutes", type=int, default=1440, metavar="N", help="stops after so much running of tests")
    parser.add_argument("--again", action="store_true",
                        help="only those that were not tried the last time, or neither noticed nor explained, and all of changed sources")
    parser.add_argument("--report", type=pathlib.Path, metavar="FILE", help="writes the report that docs/mutation.md is")
    options = parser.parse_args()

    HERE.mkdir(parents=True, exist_ok=True)
    copy_tree()
    results, earlier = {}, 0
    with concurrent.futures.ProcessPoolExecutor(os.cpu_count()) as pool:
        sources = load_sources(pool)
        configure()
        digests = {source.name: hashlib.sha256(source.data).hexdigest() for source in sources}
        mutants, left_out = build(sources, digests)
        known = keys(mutants)
        chosen = [mutant for mutant in mutants if options.only in mutant.file
                  and options.kind in (None, mutant.kind)][::options.every]
        if options.again:
            last = json.loads(LAST.read_text())
            earlier = last["seconds"]
            same = unchanged(last["sources"], digests)
            tried = {tuple(entry["key"]): entry for entry in last["results"] if entry["key"][0] in same}
            results = {mutant.number: {**tried[known[mutant.number]], "line": mutant.line, "number": mutant.number}
                       for mutant in mutants if known[mutant.number] in tried}
            explained = report.explanations()
            chosen = [mutant for mutant in chosen if mutant.number not in results
                      or (results[mutant.number]["outcome"] not in report.NOTICED
                          and known[mutant.number] not in explained)]
        # From all over the library, in case that the time does not last.
        chosen = [mutant for i in range(PARTS) for mutant in chosen[i::PARTS]]
        print(f"{len(mutants)} mutants, {len(chosen)} of them to be tried", flush=True)

        reaching = first_runs(pool)
        begun = time.monotonic()
        done = 0
        futures = {pool.submit(judge, mutant.number, mutant.file.split("/")[1], dict(reaching.get(mutant.number, {}))): mutant
                   for mutant in chosen}
        try:
            for done, future in enumerate(concurrent.futures.as_completed(futures, 60 * options.minutes), 1):
                mutant = futures[future]
                results[mutant.number] = {"key": known[mutant.number], "line": mutant.line, "number": mutant.number,
                                          "outcome": future.result()}
                if done % 200 == 0:
                    print(f"{done} tried, {time.monotonic() - begun:.0f} s", flush=True)
        except concurrent.futures.TimeoutError:
            print(f"{len(results)} tried, the time is up", flush=True)
            pool.shutdown(cancel_futures=True)
    seconds = earlier + time.monotonic() - begun
    entries = [results[number] for number in sorted(results)]
    LAST.write_text(json.dumps({"seconds": seconds, "sources": digests, "results": entries}, ensure_ascii=False, indent=0)
                    + "\n")
    text = report.report(entries, len(mutants), left_out, seconds, done)
    print(text)
    if options.report:
        options.report.write_text(text)


if __name__ == "__main__":
    main()
