"""Parts of a page: paragraphs, lists, tables."""

import textwrap

from figures import duration, ratio

WIDTH = 118


def paragraph(*sentences):
    return textwrap.fill(" ".join(sentences), WIDTH, break_on_hyphens=False) + "\n\n"


def bullets(texts):
    return "".join(textwrap.fill(text, WIDTH, initial_indent="- ", subsequent_indent="  ", break_on_hyphens=False) + "\n"
                   for text in texts)


def table(head, rows):
    lines = [head, ["---"] * len(head)] + rows
    return "".join(f"| {' | '.join(row)} |\n" for row in lines) + "\n"


def beside(other, own):
    """A time that stands beside this project's own."""
    return f"{duration(other)} ({ratio(other, own)})"


def side_by_side(results, rows, ours, others):
    """rows: (what, ending of the names); ours and others: (heading, beginning of the names)."""
    lines = []
    for what, ending in rows:
        own = results.median(ours[1] + ending)
        cells = [duration(own)]
        for _, name in others:
            known = name + ending if name + ending in results.figures else name
            cells.append(beside(results.median(known), own))
        lines.append([what] + cells)
    return table([""] + [ours[0]] + [heading for heading, _ in others], lines)


def listed(names):
    return names[0] if len(names) == 1 else f"{', '.join(names[:-1])} and {names[-1]}"
