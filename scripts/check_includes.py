#!/usr/bin/env python3
"""Checks every #include below src/: a permitted standard header, or one of ours in the same or a lower folder.

The library has to run in hosts it knows nothing about. That is why it uses no other library, and of the standard
library only what needs no thread, lock, locale, stream, file or environment.
"""

import pathlib
import re
import sys

# Folders from bottom to top; folders in one line do not see each other.
LAYERS = [
    ["basic"],
    ["platform"],
    ["display"],
    ["config"],
    ["servo_page", "servo_menu"],
    ["shell"],
]

PERMITTED = set(
    """
    algorithm array bit bitset cassert cfloat charconv cinttypes climits cmath compare concepts cstddef cstdint cstring
    deque exception functional initializer_list iterator limits list map memory new numbers numeric optional queue
    ranges set span stack stdexcept string string_view tuple type_traits typeinfo unordered_map unordered_set utility
    variant vector version
    """.split()
)

INCLUDE = re.compile(r'^\s*#\s*include\s*(<[^>]*>|"[^"]*"|.*)')


def rank(folder):
    for number, names in enumerate(LAYERS):
        if folder in names:
            return number
    return None


def problem(src, file, target):
    """What is wrong with including target ("<...>" or the quoted form) in file, or None."""
    if target.startswith("<"):
        header = target[1:-1]
        if header not in PERMITTED:
            return f"<{header}> is not among the standard headers the library may use"
        return None
    if not target.startswith('"'):
        return "cannot be checked: write the name itself"
    name = target[1:-1]
    if not (src / name).is_file():
        return f'"{name}" is not a file below src/ (write the path from there)'
    own, other = file.relative_to(src).parts[0], name.split("/")[0]
    if rank(other) is None or rank(own) is None:
        return f"the folder {own if rank(own) is None else other} has no place among the layers"
    if own != other and rank(other) >= rank(own):
        return f'"{name}" does not lie below {own}/'
    return None


def main():
    root = pathlib.Path(__file__).resolve().parent.parent
    src = root / "src"
    files = sorted(path for path in src.rglob("*") if path.suffix in (".h", ".cpp"))
    found = 0
    for file in files:
        for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
            match = INCLUDE.match(line)
            reason = match and problem(src, file, match.group(1))
            if reason:
                print(f"{file.relative_to(root)}:{number}: {reason}")
                found += 1
    print(f"{len(files)} files below src/, {found} includes that may not be")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
