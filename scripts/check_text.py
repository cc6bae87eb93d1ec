#!/usr/bin/env python3
"""Checks the text of the sources: UTF-8 in composed form (NFC), line feeds only, ASCII file names.

Identifiers with umlauts compare byte by byte: the same name in composed and in decomposed form would be two names.
"""

import pathlib
import sys
import unicodedata

FOLDERS = ["src", "hosts", "adapters", "demo", "tests", "bench", "docs", "cmake", "scripts", "fuzz", "examples", "packaging"]
ENDINGS = [".h", ".cpp", ".cmake", ".md", ".py", ".sh", ".json", ".scenario", ".trace"]
NAMES = ["CMakeLists.txt"]


def problems(path):
    if not path.name.isascii():
        yield "file names are ASCII"
    if path.suffix not in ENDINGS and path.name not in NAMES:
        return
    data = path.read_bytes()
    try:
        text = data.decode("utf-8")
    except UnicodeDecodeError as error:
        yield f"not UTF-8 at byte {error.start}"
        return
    for number, line in enumerate(text.split("\n"), 1):
        if not unicodedata.is_normalized("NFC", line):
            yield f"line {number} is not in composed form (NFC)"
        if "\r" in line:
            yield f"line {number} has a carriage return"
        if line.startswith("\ufeff"):
            yield f"line {number} starts with a byte order mark"
    if data and not data.endswith(b"\n"):
        yield "no line feed at the end"


def main():
    root = pathlib.Path(__file__).resolve().parent.parent
    files = [path for path in root.iterdir() if path.is_file()]
    for folder in FOLDERS:
        files += [path for path in (root / folder).rglob("*") if path.is_file() and "__pycache__" not in path.parts]
    found = 0
    for path in sorted(files):
        for reason in problems(path):
            print(f"{path.relative_to(root)}: {reason}")
            found += 1
    print(f"{len(files)} files, {found} findings")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
