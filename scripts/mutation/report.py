"""The report of a run with mutants."""

import collections
import pathlib

EXPLAINED = pathlib.Path(__file__).with_name("survivors.txt")
NOTICED = ("noticed", "did not end")


def explanations():
    """Why a survivor cannot be noticed: blocks of "file | kind | text | change" and an indented reason."""
    known = {}
    current = None
    if EXPLAINED.exists():
        for line in EXPLAINED.read_text().splitlines():
            if line.startswith("    ") and current:
                known[current] = (known[current] + " " + line.strip()).strip()
            elif line and not line.startswith("#"):
                current = tuple(part.strip() for part in line.split(" | "))
                known[current] = ""
    return known


def row(name, entries):
    count = collections.Counter(entry["outcome"] for entry in entries)
    noticed = sum(count[outcome] for outcome in NOTICED)
    share = 100 * noticed / len(entries)
    return f"| {name} | {len(entries)} | {noticed} | {count['survived']} | {count['never run']} | {share:.1f} % |"


def table(heading, results, group):
    groups = collections.defaultdict(list)
    for entry in results:
        groups[group(entry)].append(entry)
    lines = [f"| {heading} | mutants | noticed | survived | never run | noticed |", "| --- | --- | --- | --- | --- | --- |"]
    lines += [row(name, entries) for name, entries in sorted(groups.items())]
    return lines + [row("**all**", results)]


def report(results, left_out, seconds):
    known = explanations()
    survivors = [entry for entry in results if entry["outcome"] not in NOTICED]
    lines = ["# What the tests notice", "",
             "The library was broken on purpose, one place at a time, and its tests were run: conditions turned round, bounds",
             "moved, constants changed, statements dropped or swapped. Made by `scripts/mutation/mutate.py --report",
             "docs/mutation.md`.", "",
             f"{len(results)} mutants in {seconds / 60:.0f} minutes; on {left_out} lines the mutants cannot be compiled and are not",
             "counted.", ""]
    lines += table("kind", results, lambda entry: entry["key"][1]) + [""]
    lines += table("folder", results, lambda entry: "/".join(entry["key"][0].split("/")[:2])) + [""]
    lines += [f"## Not noticed: {len(survivors)}", ""]
    for entry in survivors:
        file, kind, text, change = entry["key"]
        reason = known.get((file, kind, text, change), "**not explained**")
        lines.append(f"- {file}:{entry['line']} {kind} `{text}`: {change} ({entry['outcome']}). {reason}")
    return "\n".join(lines) + "\n"
