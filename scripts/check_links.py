#!/usr/bin/env python3
"""Checks the relative links of all Markdown files: the file and the heading that they lead to exist.

The manual is installed without the sources around it: what is in docs/ links to nothing outside, nor to those of its pages
that are not installed.
"""

import pathlib
import re
import sys
import unicodedata

LINK = re.compile(r"\]\(([^)\s]+)\)")
NOT_INSTALLED = ["mutation.md", "robustness.md"]  # by cmake/PanelInstall.cmake
FENCE = re.compile(r"^\s*```")


def prose(path):
    """The lines of a file with their numbers, without blocks of code."""
    is_code = False
    for number, line in enumerate(path.read_text(encoding="utf-8").split("\n"), 1):
        if FENCE.match(line):
            is_code = not is_code
        elif not is_code:
            yield number, line


def anchor(heading):
    """What a heading is called in links, by the rules of the usual viewers."""
    text = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", heading).strip().lower()
    kept = "".join(sign for sign in text if sign in " -_" or unicodedata.category(sign)[0] in "LN")
    return kept.replace(" ", "-")


def anchors(path):
    found = set()
    for _, line in prose(path):
        match = re.match(r"#+\s+(.*)", line)
        if not match:
            continue
        name = anchor(match.group(1))
        number = 0
        while (name if number == 0 else f"{name}-{number}") in found:
            number += 1
        found.add(name if number == 0 else f"{name}-{number}")
    return found


def problems(path, root):
    text = "\n".join(line for _, line in prose(path))
    for link in LINK.findall(text):
        if re.match(r"[a-z]+:", link):
            continue
        name, _, heading = link.partition("#")
        target = (path.parent / name).resolve() if name else path
        if not target.exists():
            yield f"'{link}' leads to nothing"
        elif root / "docs" in path.parents and root / "docs" not in target.parents:
            yield f"'{link}' leads out of the manual, which is installed by itself"
        elif path.parent == root / "docs" and path.name not in NOT_INSTALLED and target.name in NOT_INSTALLED:
            yield f"'{link}' leads to a page that is not installed"
        elif heading and target.suffix == ".md" and heading not in anchors(target):
            yield f"'{link}': there is no such heading"


def main():
    root = pathlib.Path(__file__).resolve().parent.parent
    count = 0
    for path in sorted(root.rglob("*.md")):
        if path.relative_to(root).parts[0] in ("build", ".git"):
            continue
        for problem in problems(path, root):
            print(f"{path.relative_to(root)}: {problem}")
            count += 1
    return 1 if count else 0


if __name__ == "__main__":
    sys.exit(main())
