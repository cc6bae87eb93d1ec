#!/usr/bin/env python3
"""Makes one shell script of the steps of the engineer's tutorial, as a reader types and saves them.

    take_tutorial.py GUIDE SCRIPT

Takes steps 1 to 8: commands as they stand, a file below its name, both in the guide's order. A block that is neither is an
error.
"""

import pathlib
import re
import sys

LAST_STEP = 8
HEADING = re.compile(r"#+ (?:Step (\d+)b?:)?")
FILE = re.compile(r"\*\*`([^`]+)`\*\*$")
END = "END_OF_THE_FILE"


def main():
    guide, script = map(pathlib.Path, sys.argv[1:])
    lines = iter(guide.read_text(encoding="utf-8").split("\n"))
    commands = []
    step = 0
    name = None
    for line in lines:
        fence = re.match(r"```(\w*)", line)
        if fence:
            block = []
            for inner in lines:
                if inner == "```":
                    break
                block.append(inner)
            if not 1 <= step <= LAST_STEP:
                continue
            if name:
                commands += [f"cat > '{name}' <<'{END}'", *block, END]
            elif fence.group(1) == "sh":
                commands += block
            else:
                sys.exit(f"{guide}: step {step} has a block that is neither a file nor commands: {block[:1]}")
            name = None
        elif line.startswith("#"):
            heading = HEADING.match(line)
            step = int(heading.group(1) or 0) if heading else 0
        elif FILE.match(line):
            name = FILE.match(line).group(1)
    if not commands:
        sys.exit(f"{guide}: no steps")
    script.write_text("set -e\n" + "\n".join(commands) + "\n", encoding="utf-8")


if __name__ == "__main__":
    main()
