"""Machine parts as they stand in the servo pictures: motor, gearbox, coupling, rollers, screws, gears, belts."""

import math

from kit import (BRASS, DARK_STEEL, GRAPHITE, GREEN, INK, KRAFT, ORANGE, PAPER, STEEL, WHITE, arc, darker, flat_plate,
                 lighter, mix, round_bar, smooth)

FLOOR = 139.0


def bed(c, x0=8.0, x1=479.0, y=FLOOR):
    """The machine bed everything stands on."""
    c.shadow(x0 + 6, x1 - 6, y + 4.5, 3.0, 0.30)
    c.shaded_box(x0, y - 3.5, x1, y + 2.0, flat_plate(DARK_STEEL), radius=1.0)


def cable(c, points, colour):
    c.path(points, darker(colour, 0.45), 4.6)
    c.path(points, colour, 3.0)
    c.path([(x, y - 0.7) for x, y in points], lighter(colour, 0.45), 0.8)


def motor(c, flange, y, length=96.0, height=46.0, shaft=14.0, out=0.0, mounted=None):
    """Servo motor in side view, shaft to the right. flange: x of the mounting face; out: x where its cables leave the picture;
    mounted: y of the floor under its foot, None when it hangs on its flange."""
    h = height / 2
    back, front = flange - length, flange - 9.0
    if mounted is not None:
        c.shadow(back + 4, flange, mounted, 4.0, 0.35)
        c.shaded_polygon([(flange - 10, y + h), (flange + 0.5, y + h), (flange + 5, mounted), (flange - 22, mounted)],
                         flat_plate(DARK_STEEL))
    # Power and encoder cables leave backwards over the housing.
    for place, colour, lift in ((0.62, ORANGE, 16.5), (0.30, GREEN, 8.0)):
        x, level = back + length * place, y - h - lift
        start = [(x - 9, y - h - 8.5), (x - 15, y - h - 9.0)] if lift > 10 else [(x - 9, y - h - 8.5)]
        cable(c, smooth(start + [(x - 26, level), (back - 6, level + 1), (back - 22, level + 6), (min(out, back - 30) - 6, level + 7)]), colour)
    # Encoder housing, body with cooling ribs, mounting flange.
    c.shaded_box(back, y - h * 0.80, back + 20, y + h * 0.80, round_bar(darker(GRAPHITE, 0.25)), radius=3.5)
    c.shaded_box(back + 15, y - h, front + 1, y + h, round_bar(GRAPHITE), radius=2.0)
    for i in range(9):
        rib = y - h + (i + 0.7) * height / 9.4
        c.path([(back + 18, rib), (front - 2, rib)], mix(GRAPHITE, INK, 0.75), 0.8)
        c.path([(back + 18, rib + 1.0), (front - 2, rib + 1.0)], mix(GRAPHITE, WHITE, 0.22), 0.5)
    plate(c, (back + 15 + front) / 2, y)
    c.shaded_box(front, y - h * 1.14, flange, y + h * 1.14, round_bar(STEEL), radius=1.0)
    for side in (-1, 1):
        c.box(front - 2.6, y + side * h * 0.95 - 2.2, front + 0.2, y + side * h * 0.95 + 2.2, DARK_STEEL, width=0.6)
    # Centring collar and shaft with its key.
    if shaft:
        c.shaded_box(flange, y - h * 0.55, flange + 3, y + h * 0.55, round_bar(STEEL), width=0.7)
        bar(c, flange + 3, flange + 3 + shaft, y, 5.0)
        c.box(flange + 6, y - 3.4, flange + shaft - 1, y - 1.2, DARK_STEEL, width=0.5)
    # Right-angle connectors.
    for place, colour in ((0.62, ORANGE), (0.30, GREEN)):
        x = back + length * place
        connector(c, x, y - h, colour)


def plate(c, x, y):
    """Name plate, dark, so that a white caption can stand on it."""
    c.box(x - 28, y - 10, x + 28, y + 10, (34, 38, 45), lighter(GRAPHITE, 0.35), 0.7, radius=1.5)


def connector(c, x, y, colour):
    c.shaded_box(x - 5, y - 5.0, x + 5, y + 1.0, round_bar(darker(GRAPHITE, 0.2)), "x", radius=1.0)
    c.shaded_box(x - 7, y - 13, x + 5.5, y - 4.0, round_bar(darker(GRAPHITE, 0.05)), radius=3.0)
    c.shaded_box(x - 10, y - 13.5, x - 5.5, y - 3.5, round_bar(BRASS), width=0.7, radius=1.0)
    c.path([(x - 3.5, y - 11), (x + 3.0, y - 11)], lighter(colour, 0.2), 1.4)


def bar(c, x0, x1, y, r, colour=STEEL, edge=INK):
    c.shaded_box(x0, y - r, x1, y + r, round_bar(colour), edge=edge, width=0.8)


def gearbox(c, x, y, length=30.0, height=42.0):
    """Planetary gearbox, input at x."""
    h = height / 2
    c.shaded_box(x, y - h * 1.06, x + 6, y + h * 1.06, round_bar(STEEL), radius=1.0)
    c.shaded_box(x + 6, y - h * 0.92, x + length - 7, y + h * 0.92, round_bar(lighter(DARK_STEEL, 0.25)))
    for i in range(1, 3):
        at_x = x + 6 + (length - 13) * i / 3
        c.path([(at_x, y - h * 0.9), (at_x, y + h * 0.9)], darker(DARK_STEEL, 0.35), 0.7)
    c.shaded_box(x + length - 7, y - h * 1.02, x + length, y + h * 1.02, round_bar(STEEL), radius=1.0)
    c.shaded_box(x + length, y - h * 0.42, x + length + 5, y + h * 0.42, round_bar(STEEL), width=0.7)


def angle_gearbox(c, x, y, size=44.0):
    """Right-angle gearbox: input from the left at x, output towards the viewer. Returns the centre of the output."""
    h = size / 2
    c.shaded_box(x, y - h * 0.92, x + 7, y + h * 0.92, round_bar(STEEL), radius=1.0)
    c.shaded_polygon([(x + 7, y - h * 0.7), (x + 12, y - h), (x + 12 + size, y - h), (x + 12 + size, y + h), (x + 12, y + h),
                      (x + 7, y + h * 0.7)], flat_plate(lighter(DARK_STEEL, 0.30)))
    cx = x + 12 + h
    for dx in (-1, 1):
        for dy in (-1, 1):
            c.circle(cx + dx * h * 0.78, y + dy * h * 0.78, 1.9, DARK_STEEL, width=0.6)
    c.shaded_oval(cx, y, h * 0.74, h * 0.74, flat_plate(STEEL))
    return cx, y


def coupling(c, x, y, length=22.0, r=11.0):
    """Metal bellows coupling."""
    c.shaded_box(x, y - r * 0.85, x + 6, y + r * 0.85, round_bar(DARK_STEEL), width=0.8, radius=0.8)
    c.shaded_box(x + length - 6, y - r * 0.85, x + length, y + r * 0.85, round_bar(DARK_STEEL), width=0.8, radius=0.8)
    waves = 4
    pitch = (length - 12) / waves
    for i in range(waves):
        c.shaded_box(x + 6 + i * pitch, y - r, x + 6 + (i + 0.8) * pitch, y + r, round_bar(STEEL), width=0.6, radius=0.8)
    for at_x in (x + 3, x + length - 3):
        c.circle(at_x, y, 1.4, INK, None)


def pedestal(c, x, y, width=20.0, floor=FLOOR - 3.5, r=13.0):
    """Bearing block on its stand, seen from the side."""
    w = width / 2
    c.shaded_polygon([(x - w * 0.75, y), (x + w * 0.75, y), (x + w * 1.35, floor), (x - w * 1.35, floor)],
                     [(0.0, lighter(DARK_STEEL, 0.35)), (1.0, DARK_STEEL)], "x")
    c.shaded_box(x - w, y - r, x + w, y + r, round_bar(lighter(DARK_STEEL, 0.25)), radius=2.5)
    for dy in (-r * 0.6, r * 0.6):
        c.circle(x, y + dy, 1.6, darker(DARK_STEEL, 0.4), None)


def drum(c, x0, x1, y, r, colour, face=None, tilt=0.26, edge=INK):
    """Cylinder seen from a little to the right: body and its right face."""
    rx = r * tilt
    points = [(x1, y - r)] + arc(x0, y, rx, -90, -270, ry=r) + [(x1, y + r)]
    c.shaded_polygon(points, round_bar(colour), edge=edge)
    face = lighter(colour, 0.25) if face is None else face
    c.shaded_oval(x1, y, rx, r, [(0.0, lighter(face, 0.25)), (1.0, darker(face, 0.22))], edge=edge)


def hub(c, x, y, r, tilt=0.26, stub=16.0, shaft=5.0):
    """Journal in the face of a drum, sticking out to the right."""
    c.shaded_oval(x, y, r * tilt, r, flat_plate(DARK_STEEL), width=0.7)
    bar(c, x, x + stub, y, shaft)
    c.shaded_oval(x + stub, y, shaft * tilt, shaft, flat_plate(lighter(STEEL, 0.3)), width=0.6)


def wheel(c, x, y, r, colour, rim=0.14, hub_r=0.30, bore=0.13):
    """Roller or disc seen from its end."""
    c.shaded_oval(x, y, r, r, [(0.0, lighter(colour, 0.45)), (0.5, colour), (1.0, darker(colour, 0.5))])
    inner = r * (1 - rim)
    c.shaded_oval(x, y, inner, inner, [(0.0, darker(colour, 0.22)), (0.55, lighter(colour, 0.12)), (1.0, lighter(colour, 0.42))],
                  edge=darker(colour, 0.4), width=0.6)
    c.shaded_oval(x, y, r * hub_r, r * hub_r, [(0.0, lighter(STEEL, 0.5)), (1.0, DARK_STEEL)], width=0.7)
    c.circle(x, y, r * bore, darker(DARK_STEEL, 0.35), INK, 0.6)


def gear(c, x, y, r, teeth, colour=STEEL, phase=0.0, depth=None, holes=0):
    """Spur gear seen from its end; r: pitch radius."""
    depth = r * 0.16 if depth is None else depth
    points = []
    for i in range(teeth):
        base = 360.0 * i / teeth + phase
        step = 360.0 / teeth
        for offset, radius in ((-0.27, r - depth), (-0.15, r + depth * 0.9), (0.15, r + depth * 0.9), (0.27, r - depth)):
            a = math.radians(base + offset * step)
            points.append((x + radius * math.cos(a), y + radius * math.sin(a)))
    c.shaded_polygon(points, [(0.0, lighter(colour, 0.45)), (0.5, colour), (1.0, darker(colour, 0.42))], width=0.8)
    inner = r - depth * 2.2
    c.shaded_oval(x, y, inner, inner, [(0.0, darker(colour, 0.15)), (1.0, lighter(colour, 0.35))], edge=darker(colour, 0.45), width=0.6)
    for i in range(holes):
        a = math.radians(360.0 * i / holes + phase)
        c.circle(x + inner * 0.62 * math.cos(a), y + inner * 0.62 * math.sin(a), inner * 0.17, darker(colour, 0.45), INK, 0.6)
    c.shaded_oval(x, y, r * 0.26, r * 0.26, [(0.0, lighter(STEEL, 0.5)), (1.0, DARK_STEEL)], width=0.7)
    c.circle(x, y, r * 0.12, darker(DARK_STEEL, 0.35), INK, 0.6)


def belt_outline(x0, y0, r0, x1, y1, r1):
    """Outline of a belt around two pulleys."""
    distance = math.hypot(x1 - x0, y1 - y0)
    direction = math.degrees(math.atan2(y1 - y0, x1 - x0))
    lean = math.degrees(math.acos((r0 - r1) / distance))
    return arc(x0, y0, r0, direction + lean, direction + 360 - lean) + arc(x1, y1, r1, direction - lean, direction + lean)


def belt(c, x0, y0, r0, x1, y1, r1, toothed=True):
    outline = belt_outline(x0, y0, r0 + 1.5, x1, y1, r1 + 1.5)
    outline.append(outline[0])
    c.path(outline, INK, 4.4)
    c.path(outline, (78, 84, 94), 2.6)
    if toothed:
        dashes(c, belt_outline(x0, y0, r0 + 0.4, x1, y1, r1 + 0.4), (176, 182, 190), 1.0, 1.6, 2.2)


def dashes(c, points, colour, width, on, off):
    points = points + [points[0]]
    travelled, last = 0.0, None
    for (x0, y0), (x1, y1) in zip(points, points[1:]):
        length = math.hypot(x1 - x0, y1 - y0)
        steps = max(1, int(length / 0.4))
        for i in range(steps):
            t = i / steps
            here = (x0 + (x1 - x0) * t, y0 + (y1 - y0) * t)
            if (travelled + length * t) % (on + off) < on:
                if last is not None:
                    c.draw.line(c.px([last, here]), fill=colour, width=c.line_width(width))
                last = here
            else:
                last = None
        travelled += length


def screw(c, x0, x1, y, r, pitch=6.0, colour=STEEL):
    """Threaded spindle, axis horizontal."""
    bar(c, x0, x1, y, r, colour)
    x = x0 + pitch * 0.4
    while x + pitch * 0.5 < x1:
        c.path([(x, y - r + 0.4), (x + pitch * 0.5, y + r - 0.4)], darker(colour, 0.55), 1.1)
        c.path([(x + 1.3, y - r + 0.6), (x + 1.3 + pitch * 0.5, y + r - 0.6)], lighter(colour, 0.6), 0.6)
        x += pitch


def screw_upright(c, x, y0, y1, r, pitch=6.0, colour=STEEL):
    c.shaded_box(x - r, y0, x + r, y1, round_bar(colour), "x", width=0.8)
    y = y0 + pitch * 0.4
    while y + pitch * 0.5 < y1:
        c.path([(x - r + 0.4, y + pitch * 0.5), (x + r - 0.4, y)], darker(colour, 0.55), 1.1)
        c.path([(x - r + 0.6, y + pitch * 0.5 + 1.3), (x + r - 0.6, y + 1.3)], lighter(colour, 0.6), 0.6)
        y += pitch


def stack(c, x0, y0, x1, y1, layers, colour=KRAFT, shift=9.0):
    """A pile of blanks with its top and right side visible."""
    top = [(x0, y0), (x0 + shift, y0 - shift * 0.55), (x1 + shift, y0 - shift * 0.55), (x1, y0)]
    side = [(x1, y0), (x1 + shift, y0 - shift * 0.55), (x1 + shift, y1 - shift * 0.55), (x1, y1)]
    c.polygon(side, darker(colour, 0.28))
    c.polygon([(x0, y0), (x1, y0), (x1, y1), (x0, y1)], colour)
    c.polygon(top, lighter(colour, 0.45))
    for i in range(1, layers):
        y = y0 + (y1 - y0) * i / layers
        c.path([(x0, y), (x1, y), (x1 + shift, y - shift * 0.55)], darker(colour, 0.38), 0.6)


def paper(c, points, width=3.0):
    """The web, edge on."""
    c.path(points, darker(PAPER, 0.55), width + 1.2)
    c.path(points, PAPER, width)
