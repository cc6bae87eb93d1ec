"""Histograms as pictures: SVG, written plainly."""

import math

from figures import duration, percentile, round_duration

WIDTH, HEIGHT = 720, 250
LEFT, RIGHT, TOP, BOTTOM = 20, 20, 34, 40
BARS = 60
LABEL = 56  # of the axis, pixels of one at most


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


def svg(title, milliseconds):
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
        f'<text x="{WIDTH - RIGHT}" y="20" fill="#505050" text-anchor="end">{len(milliseconds)} times</text>',
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
    for name, share, up in (("half", 0.5, 0), ("99 %", 0.99, 12)):
        value = percentile(milliseconds, share)
        lines.append(f'<path d="M{across(value):.1f} {TOP + up}V{bottom}" stroke="#c0392b" stroke-dasharray="4 3"/>')
        end = across(value) > WIDTH * 0.8
        lines.append(f'<text x="{across(value) + (-4 if end else 4):.1f}" y="{TOP + up + 9}" fill="#c0392b" '
                     f'text-anchor="{"end" if end else "start"}">{name}: {duration(value / 1000)}</text>')
    lines.append("</svg>")
    return "\n".join(lines) + "\n"
