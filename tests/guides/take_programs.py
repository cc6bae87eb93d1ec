#!/usr/bin/env python3
"""Takes the C++ of a guide out of it, so that tests compile and run what readers copy.

    take_programs.py GUIDE FOLDER FILE=TEXT...

Writes each block of C++ to the FILE in FOLDER whose TEXT stands in the block. A block that belongs to no file, or a file
without exactly one block, is an error: no program of the guide goes untested.
"""

import pathlib
import re
import sys

BLOCK = re.compile(r"^```cpp\n(.*?)^```$", re.DOTALL | re.MULTILINE)


def main():
    guide = pathlib.Path(sys.argv[1])
    folder = pathlib.Path(sys.argv[2])
    texts = dict(argument.split("=", 1) for argument in sys.argv[3:])
    blocks = BLOCK.findall(guide.read_text(encoding="utf-8"))
    for block in blocks:
        if not any(text in block for text in texts.values()):
            sys.exit(f"{guide}: no test takes this program:\n{block}")
    folder.mkdir(parents=True, exist_ok=True)
    for name, text in texts.items():
        found = [block for block in blocks if text in block]
        if len(found) != 1:
            sys.exit(f"{guide}: {len(found)} programs have '{text}', not one")
        (folder / name).write_text(found[0], encoding="utf-8")


if __name__ == "__main__":
    main()
