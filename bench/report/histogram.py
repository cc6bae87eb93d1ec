"""Histograms as pictures: SVG, written plainly."""

import math
import re

from figures import duration, percentile, round_duration

WIDTH, HEIGHT = 720, 250
LEFT, RIGHT, TOP, BOTTOM = 20, 20, 34, 44
BARS = 60
LABEL = 56  # of the axis, pixels of one at most

# Of what each single time is shown: (title, its name among the samples; None: the line's writes).
HISTOGRAMS = {
    "tickUnchanged": ("A refresh of a diagnosis page, nothing changed", "tickUnchanged/trace:0/diagnosis:1"),
    "tickChanging": ("A refresh of a diagnosis page, every value changed and painted", "tickChanging/trace:0/diagnosis:1"),
    "processToMenu": ("From the start of the program to the painted menu", "processToMenu"),
    "firstTouch": ("From the first touch of a program just started to the painted page", "firstTouch"),
    "openPageAgain": ("From a touch to the painted page, any other time", "openPageAgain/trace:0"),
    "confirm": ("From the touch of the key to the end of a confirm, painted, journal on the disk", "confirm/trace:0/journal:1"),
    "writes": ("From a write to its answer, through a broker", None),
}


def picture_file(name):
    return f"measurements-{re.sub('([A-Z])', lambda letter: '-' + letter[0].lower(), name)}.svg"


def shown(names):
    return "".join(f"![{HISTOGRAMS[name][0]}](images/{picture_file(name)})\n\n" for name in names)


def scale(values):
    """The decades' parts that the values lie between."""
    low, high = math.log10(min(values) * 0.95), math.log10(max(values) * 1.05)
    return low, high


def ticks(low, high):
    """Round numbers, closer ones where the values lie close together."""
    for factors in ((1, 2, 5), (1, 1.5, 2, 3, 5, 7), [1 + tenth / 10 for tenth in range(0, 90, 2)]):
        marks = [factor * 10.0 ** decade for decade in range(math.floor(low), math.ceil(high) + 1) for factor in factors]
        marks = [mark for mark in marks if low <= math.log10(mark) <= high]
        if len(marks) >= 3:
            break
    return marks


def svg(name, results):
    title, sample = HISTOGRAMS[name]
    milliseconds = results.line["writes_ms"] if sample is None else results.samples[sample]
    low, high = scale(milliseconds)
    step = (high - low) / BARS
    counts = [0] * BARS
    for value in milliseconds:
        counts[min(BARS - 1, int((math.log10(value) - low) / step))] += 1
    bottom = HEIGHT - BOTTOM

    def across(value):
        return LEFT + (math.log10(value) - low) / (high - low) * (WIDTH - LEFT - RIGHT)

    wide = (WIDTH - LEFT - RIGHT) / BARS
    lines = [
        f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {HEIGHT}" width="{WIDTH}" height="{HEIGHT}" '
        'font-family="sans-serif" font-size="12">',
        f"<title>{title}</title>",
        f'<rect width="{WIDTH}" height="{HEIGHT}" fill="#ffffff"/>',
        f'<text x="{LEFT}" y="20" fill="#202020" font-size="14">{title}</text>',
        f'<text x="{WIDTH - RIGHT}" y="20" fill="#505050" text-anchor="end">{len(milliseconds):,} times</text>',
    ]
    for i, count in enumerate(counts):
        high_bar = count / max(counts) * (bottom - TOP - 16)
        # A single one is to be seen too.
        high_bar = max(high_bar, 1.5) if count else 0
        lines.append(f'<rect x="{LEFT + i * wide:.1f}" y="{bottom - high_bar:.1f}" width="{wide - 1:.1f}" '
                     f'height="{high_bar:.1f}" fill="#33658a"/>')
    lines.append(f'<path d="M{LEFT} {bottom}H{WIDTH - RIGHT}" stroke="#202020"/>')
    right = -LABEL
    for mark in ticks(low, high):
        if across(mark) < right + LABEL:
            continue
        right = across(mark)
        lines.append(f'<path d="M{across(mark):.1f} {bottom}v5" stroke="#202020"/>')
        lines.append(f'<text x="{across(mark):.1f}" y="{bottom + 18}" fill="#202020" '
                     f'text-anchor="middle">{round_duration(mark / 1000)}</text>')
    for text, share, up in (("half", 0.5, 0), ("99 %", 0.99, 12), ("slowest", 1.0, 24)):
        value = percentile(milliseconds, share)
        lines.append(f'<path d="M{across(value):.1f} {TOP + up}V{bottom}" stroke="#c0392b" stroke-dasharray="4 3"/>')
        end = across(value) > WIDTH * 0.8
        lines.append(f'<text x="{across(value) + (-4 if end else 4):.1f}" y="{TOP + up + 9}" fill="#c0392b" '
                     f'text-anchor="{"end" if end else "start"}">{text}: {duration(value / 1000)}</text>')
    lines.append(f'<text x="{LEFT}" y="{HEIGHT - 5}" fill="#505050">Logarithmic axis; the highest bar: '
                 f"{max(counts):,} times</text>")
    lines.append("</svg>")
    return "\n".join(lines) + "\n"
