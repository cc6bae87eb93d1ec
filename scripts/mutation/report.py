"""The report of a run with mutants."""

import collections
import datetime
import pathlib

EXPLAINED = pathlib.Path(__file__).with_name("survivors.txt")
NOTICED = ("noticed", "did not end")
COLUMNS = ("mutants", "noticed", "cannot be noticed", "not noticed", "share noticed", "share of those that can be")


def explanations():
    """Why survivors cannot be noticed: lines "file | kind | text | change", then a reason for all of these, indented."""
    groups = []
    for line in EXPLAINED.read_text().splitlines() if EXPLAINED.exists() else []:
        if line.startswith("    "):
            groups[-1][1].append(line.strip())
        elif line and not line.startswith("#"):
            if not groups or groups[-1][1]:
                groups.append(([], []))
            file, kind, *text, change = line.split(" | ")
            groups[-1][0].append((file, kind, " | ".join(text), change))
    return {key: " ".join(reason) for keys, reason in groups for key in keys}


def row(name, entries, known):
    count = collections.Counter(entry["outcome"] for entry in entries)
    noticed = sum(count[outcome] for outcome in NOTICED)
    explained = sum(entry["outcome"] not in NOTICED and tuple(entry["key"]) in known for entry in entries)
    others = len(entries) - explained
    cells = (name, len(entries), noticed, explained, others - noticed, f"{100 * noticed / len(entries):.1f} %",
             f"{100 * noticed / others:.1f} %" if others else "")
    return "| " + " | ".join(map(str, cells)) + " |"


def table(heading, results, known, group):
    groups = collections.defaultdict(list)
    for entry in results:
        groups[group(entry)].append(entry)
    lines = ["| " + " | ".join((heading, *COLUMNS)) + " |", "|" + " --- |" * (len(COLUMNS) + 1)]
    lines += [row(name, entries, known) for name, entries in sorted(groups.items())]
    return [*lines, row("**all**", results, known), ""]


def report(results, mutants, left_out, seconds, tried_now):
    known = explanations()
    again = f" {tried_now} of them in the last run: those of changed sources, and those that were neither noticed nor explained before." \
        if tried_now < len(results) else ""
    lines = ["# What the tests notice", "",
             "The library (`src/`) was broken on purpose, one place at a time, and its tests were run with each of these mutants:",
             "conditions turned round, bounds moved, constants changed, statements dropped or swapped, width taken for height, traps",
             "that let a failure through (where the statement calls something: what only keeps or compares numbers cannot fail), texts",
             "misspelt by their last character. A mutant is noticed when a test fails, crashes or does not end. Made by", "",
             "    apt-get install python3-clang-14",
             "    /usr/bin/python3 scripts/mutation/mutate.py --report docs/mutation.md", "",
             "which builds everything once in `build/mutation` (`--help` tells how to try single mutants). Why a mutant cannot be",
             "noticed, by any test, is kept in `scripts/mutation/survivors.txt` and told below.", "",
             f"{datetime.date.today().isoformat()}: {len(results)} of {mutants} mutants tried, in {seconds / 60:.0f} minutes.{again}",
             f"{left_out.total()} more are not counted: the compiler works them out, so that none can act (sizes of arrays and",
             f"the like), or does not take their line. {left_out['text'] or 'None'} of them are texts.", ""]
    lines += table("folder", results, known, lambda entry: "/".join(entry["key"][0].split("/")[:2]))
    lines += table("kind", results, known, lambda entry: entry["key"][1])
    survivors = [entry for entry in results if entry["outcome"] not in NOTICED]
    lines += [f"## Those that cannot be noticed, and others that were not: {len(survivors)}", ""]
    reasons = collections.defaultdict(list)
    for entry in survivors:
        reasons[known.get(tuple(entry["key"]), "Not explained.")].append(entry)
    for reason, entries in reasons.items():
        lines += [reason, ""]
        for entry in entries:
            file, kind, text, change = entry["key"]
            never = ", never run" if entry["outcome"] == "never run" else ""
            lines.append(f"- `{file}:{entry['line']}` {kind} `{text}`: {change}{never}")
        lines.append("")
    return "\n".join(lines).rstrip() + "\n"
