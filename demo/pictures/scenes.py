"""One drawing per servo: the motor and what it drives, 487 x 146 units."""

import math

from kit import (ACCENT, AMBER, BRASS, DARK_STEEL, GRAPHITE, INK, KRAFT, ORANGE, PAPER, RUBBER, STEEL, WHITE, Canvas, arc, darker,
                 flat_plate, lighter, mix, round_bar, smooth)
from parts import (FLOOR, angle_gearbox, bar, bed, belt, coupling, drum, gear, gearbox, hub, motor, paper, pedestal, screw,
                   screw_upright, stack, wheel)

WIDTH, HEIGHT = 487, 146
CYAN, MAGENTA, YELLOW = (0, 150, 205), (210, 30, 120), (245, 205, 30)


def unwinder(c):
    bed(c)
    motor(c, 140, 76, mounted=FLOOR - 3)
    coupling(c, 150, 76)
    bar(c, 172, 250, 76, 5.5)
    pedestal(c, 190, 76)
    # Web leaving over the top of the reel, away from the viewer.
    web = [(240, 28), (392, 28), (432, 7), (286, 7)]
    c.shaded_polygon(web, [(0.0, mix(PAPER, (192, 192, 192), 0.75)), (1.0, PAPER)], edge=darker(PAPER, 0.45))
    c.shadow(245, 400, FLOOR - 4, 4.0, 0.35)
    drum(c, 240, 392, 79, 51, PAPER, face=(238, 228, 204))
    for r in (46, 41, 36, 31, 26, 21):
        c.oval(392, 79, r * 0.26, r, None, (196, 182, 150), 0.7)
    c.shaded_oval(392, 79, 4.2, 16, flat_plate(KRAFT))
    hub(c, 393, 79, 11, stub=52)
    pedestal(c, 432, 79)
    bar(c, 442, 452, 79, 5)
    c.arrow(338, 21, 366, 9, width=4)
    c.turn_arrow(392, 79, 16, 58, 60, -35, width=3.4)


def infeed(c):
    bed(c)
    motor(c, 116, 76, shaft=0, mounted=FLOOR - 3)
    ox, oy = angle_gearbox(c, 116, 76)
    # Side frame of the roller stand.
    c.shaded_polygon([(270, 30), (338, 30), (346, FLOOR - 3), (262, FLOOR - 3)],
                     [(0.0, lighter(DARK_STEEL, 0.5)), (1.0, lighter(DARK_STEEL, 0.2))])
    # Cylinder that loads the upper roller.
    c.shaded_box(296, 8, 312, 28, round_bar(lighter(ACCENT, 0.25)), "x", radius=1.5)
    bar_upright(c, 304, 27, 40, 2.5)
    paper(c, [(184, 40), (222, 34.2)] + arc(225, 47, 13, -98, -40) + [(278, 80), (304, 81.5), (478, 81.5)], 2.6)
    wheel(c, 304, 54, 26, RUBBER, rim=0.26)
    wheel(c, 304, 110, 26.5, STEEL)
    gear(c, 304, 110, 13, 20, DARK_STEEL)
    paper(c, [(292, 81.2), (330, 81.5)], 2.6)
    belt(c, ox, oy, 10, 304, 110, 12)
    gear(c, ox, oy, 9.5, 16, STEEL)
    gear(c, 304, 110, 11.5, 20, STEEL)
    wheel(c, 225, 47, 12, STEEL)
    c.arrow(388, 70, 438, 70)
    c.turn_arrow(304, 54, 32, 32, 55, -35)
    c.arrow(360, 20, 360, 46)


def bar_upright(c, x, y0, y1, r, colour=STEEL):
    c.shaded_box(x - r, y0, x + r, y1, round_bar(colour), "x", width=0.8)


def web_guide(c):
    motor(c, 118, 76, length=88, height=40)
    coupling(c, 128, 76, r=9)
    bar(c, 150, 172, 76, 4)
    c.shaded_box(158, 58, 172, 94, flat_plate(DARK_STEEL), radius=1.5)
    screw(c, 172, 262, 76, 6)
    c.shaded_box(262, 58, 276, 94, flat_plate(DARK_STEEL), radius=1.5)
    # Web running from top to bottom over the two rollers of the frame.
    c.shaded_polygon([(334, 0), (430, 0), (430, 146), (334, 146)], [(0.0, darker(PAPER, 0.10)), (0.5, PAPER), (1.0, darker(PAPER, 0.12))],
                     "x", edge=darker(PAPER, 0.45))
    for y in (38, 108):
        bar(c, 312, 452, y, 4)
        c.shaded_box(326, y - 13, 438, y + 13, round_bar(STEEL), radius=1.5)
        c.glaze([(334, y - 13), (430, y - 13), (430, y + 13), (334, y + 13)], PAPER, 0.78)
        c.path([(334, y - 13), (334, y + 13)], darker(PAPER, 0.45), 0.8)
        c.path([(430, y - 13), (430, y + 13)], darker(PAPER, 0.45), 0.8)
    for x in (306, 446):
        c.shaded_box(x, 20, x + 12, 126, [(0.0, lighter(ACCENT, 0.45)), (1.0, darker(ACCENT, 0.05))], "x", radius=2.0)
        for y in (38, 108):
            c.circle(x + 6, y, 4, STEEL)
    # Nut with its link to the frame.
    c.shaded_box(204, 62, 236, 90, round_bar(BRASS), radius=2.0)
    c.shaded_box(236, 70, 308, 82, [(0.0, lighter(STEEL, 0.5)), (1.0, DARK_STEEL)], radius=3.0)
    c.circle(312, 76, 4.4, STEEL)
    c.circle(226, 76, 3.0, darker(BRASS, 0.4))
    # Edge sensor.
    c.shaded_box(418, 64, 456, 71, flat_plate(GRAPHITE), radius=1.0)
    c.shaded_box(418, 77, 456, 84, flat_plate(GRAPHITE), radius=1.0)
    c.shaded_box(446, 64, 462, 84, flat_plate(GRAPHITE), radius=1.0)
    c.circle(423, 67.5, 1.8, ORANGE, None)
    c.arrow(190, 112, 250, 112, both=True)
    c.arrow(382, 58, 382, 88)


def printing_unit(c):
    bed(c)
    motor(c, 106, 76, length=92, shaft=0, mounted=FLOOR - 3)
    ox, oy = angle_gearbox(c, 106, 76, 42)
    # Stand.
    c.shaded_polygon([(228, 60), (420, 60), (428, FLOOR - 3), (220, FLOOR - 3)],
                     [(0.0, lighter(DARK_STEEL, 0.45)), (1.0, lighter(DARK_STEEL, 0.10))])
    # Ink chamber with its blade.
    c.shaded_polygon([(426, 58), (462, 58), (462, 108), (426, 108), (418, 84)], flat_plate(DARK_STEEL))
    c.polygon([(430, 70), (456, 70), (456, 104), (430, 104), (423, 86)], CYAN)
    c.path([(420, 60), (413, 73)], lighter(STEEL, 0.4), 2.0)
    ix, iy, ir = 256.0, 84.0, 42.0
    wheel(c, ix, iy, ir, STEEL, rim=0.10, hub_r=0.22, bore=0.10)
    # Plate cylinder with its printing plate, anilox roller with its cells.
    px, py, pr = 334.0, 84.0, 33.0
    wheel(c, px, py, pr, STEEL, hub_r=0.26)
    for start, end in ((150, 205), (225, 300), (325, 395), (60, 130)):
        c.path(arc(px, py, pr + 0.4, start, end), darker(MAGENTA, 0.55), 4.8)
        c.path(arc(px, py, pr + 0.4, start, end), CYAN, 3.2)
    ax, ay, ar = 394.0, 84.0, 24.0
    wheel(c, ax, ay, ar, BRASS, rim=0.22)
    for i in range(36):
        a = math.radians(i * 10)
        c.path([(ax + (ar - 4.6) * math.cos(a), ay + (ar - 4.6) * math.sin(a)),
                (ax + (ar - 0.8) * math.cos(a + 0.10), ay + (ar - 0.8) * math.sin(a + 0.10))], darker(BRASS, 0.45), 0.8)
    # Web around the impression cylinder, printed where it leaves.
    r = ir + 1.2
    paper(c, [(186, 30)] + [(ix - 10, iy - r - 1.0)] + arc(ix, iy, r, -90, 90) + [(204, iy + r), (186, iy + r)], 2.6)
    for i, colour in enumerate((CYAN, MAGENTA, YELLOW, CYAN)):
        c.path([(240 - i * 13, iy + r), (233 - i * 13, iy + r)], colour, 2.4)
    belt(c, ox, oy, 9, ix, iy, 14)
    gear(c, ox, oy, 8.5, 15, STEEL)
    gear(c, ix, iy, 13.5, 24, STEEL)
    c.turn_arrow(px, py, 41, 41, -45, -135)
    c.turn_arrow(ix, iy, 30, 30, -20, 60, width=2.6)


def varnish_unit(c):
    bed(c)
    motor(c, 124, 76, length=92, height=44, mounted=FLOOR - 3)
    coupling(c, 134, 76, r=10)
    bar(c, 156, 230, 76, 5)
    pedestal(c, 178, 76)
    c.shadow(214, 440, FLOOR - 3, 4.0, 0.3)
    # Back wall of the trough, then the roller, then the front wall with the varnish level.
    c.shaded_polygon([(214, 88), (412, 88), (412, 128), (214, 128)], flat_plate(DARK_STEEL))
    drum(c, 226, 388, 78, 38, (150, 166, 178), face=STEEL)
    for i in range(21):
        x = 231 + i * 7.4
        c.path([(x - 9.9 * math.cos(math.radians(a - 90)) + 6, 78 + 38 * math.sin(math.radians(a - 90))) for a in range(4, 178, 6)],
               (112, 128, 142), 0.5)
    hub(c, 389, 78, 10, stub=48)
    pedestal(c, 430, 78)
    c.polygon([(204, 104), (416, 104), (408, FLOOR - 4), (212, FLOOR - 4)], AMBER, darker(AMBER, 0.5), 1.0)
    c.glaze([(204, 104), (416, 104), (414.5, 110), (205.5, 110)], WHITE, 0.35)
    c.shaded_polygon([(200, 99), (204, 99), (214, FLOOR - 3.5), (408, FLOOR - 3.5), (416, 99), (420, 99), (411, FLOOR),
                      (209, FLOOR)], flat_plate(DARK_STEEL))
    # Wet film on the roller; web touching the top.
    c.glaze([(217, 92), (388, 92), (388, 104), (219, 104)], AMBER, 0.45)
    c.shaded_polygon([(236, 40), (372, 40), (402, 22), (268, 22)], [(0.0, mix(PAPER, (192, 192, 192), 0.7)), (1.0, PAPER)],
                     edge=darker(PAPER, 0.45))
    c.arrow(322, 35, 346, 24, width=3.4)
    c.turn_arrow(388, 78, 13, 46, 50, -35)


def creasing_unit(c):
    bed(c)
    motor(c, 124, 54, length=92, height=42, mounted=FLOOR - 3)
    coupling(c, 134, 54, r=9.5)
    # Left stand carries both shafts, gears pass the drive on.
    bar(c, 156, 388, 54, 5)
    bar(c, 184, 388, 112, 5)
    c.shaded_box(176, 38, 192, FLOOR - 3, [(0.0, lighter(DARK_STEEL, 0.4)), (1.0, DARK_STEEL)], "x", radius=2.0)
    c.shaded_box(202, 54 - 29, 212, 54 + 29, round_bar(BRASS), radius=1.0)
    c.shaded_box(202, 112 - 29, 212, 112 + 26, round_bar(BRASS), radius=1.0)
    for top in (54 - 29, 112 - 29):
        for i in range(13):
            y = top + 2 + i * 4.4
            c.path([(202, y), (212, y)], darker(BRASS, 0.4), 0.7)
    # Board between the discs, creased where the discs run.
    c.shaded_polygon([(222, 82), (384, 82), (384, 86.5), (222, 86.5)], flat_plate(KRAFT))
    for x in (244, 298, 352):
        drum(c, x - 9, x + 9, 112, 24, (150, 160, 170))
        c.shaded_box(x - 9, 112 - 24, x - 3, 112 + 24, round_bar(darker(STEEL, 0.3)), edge=None)
        c.path([(x, 89), (x, 135)], INK, 2.6)
        drum(c, x - 3, x + 4, 54, 28, STEEL)
        hub(c, x + 4, 54, 9, stub=10)
        c.path([(x, 81), (x, 86)], darker(KRAFT, 0.6), 1.6)
    bar(c, 362, 392, 54, 5)
    bar(c, 366, 392, 112, 5)
    c.shaded_box(388, 38, 404, FLOOR - 3, [(0.0, lighter(DARK_STEEL, 0.4)), (1.0, DARK_STEEL)], "x", radius=2.0)
    # Enlarged section through one crease.
    cx, cy = 446, 72
    c.circle(cx, cy, 31, (228, 232, 236), ACCENT, 1.6)
    c.shaded_polygon([(cx - 5, cy - 29), (cx + 5, cy - 29), (cx + 5, cy - 6), (cx, cy - 1), (cx - 5, cy - 6)], flat_plate(STEEL))
    c.path([(cx - 29, cy), (cx - 8, cy), (cx, cy + 8), (cx + 8, cy), (cx + 29, cy)], darker(KRAFT, 0.45), 6.6)
    c.path([(cx - 29, cy), (cx - 8, cy), (cx, cy + 8), (cx + 8, cy), (cx + 29, cy)], KRAFT, 5.0)
    c.shaded_polygon([(cx - 26, cy + 5), (cx - 10, cy + 5), (cx - 6, cy + 16), (cx + 6, cy + 16), (cx + 10, cy + 5), (cx + 26, cy + 5),
                      (cx + 19, cy + 24), (cx - 19, cy + 24)], flat_plate(DARK_STEEL))
    c.circle(cx, cy, 31, None, ACCENT, 1.6)
    c.arrow(cx + 17, cy - 24, cx + 17, cy - 6, width=3.0)


def folding_roller(c):
    bed(c)
    motor(c, 104, 76, length=92, shaft=0, mounted=FLOOR - 3)
    ox, oy = angle_gearbox(c, 104, 76, 42)
    c.shaded_polygon([(236, 30), (366, 30), (376, FLOOR - 3), (226, FLOOR - 3)],
                     [(0.0, lighter(DARK_STEEL, 0.5)), (1.0, lighter(DARK_STEEL, 0.18))])
    # Buckle plate with its stop, sheet standing in it.
    direction = math.radians(-32)
    ux, uy = math.cos(direction), math.sin(direction)
    for side in (-4.6, 4.6):
        x, y = 312 - uy * side, 66 + ux * side
        c.path([(x, y), (x + ux * 88, y + uy * 88)], INK, 3.4)
        c.path([(x, y), (x + ux * 88, y + uy * 88)], lighter(ACCENT, 0.35), 2.0)
    sx, sy = 312 + ux * 72, 66 + uy * 72
    c.path([(sx - uy * 8, sy + ux * 8), (sx + uy * 8, sy - ux * 8)], ORANGE, 4.0)
    paper(c, [(190, 86), (270, 86), (296, 80), (312, 68), (sx - ux * 3, sy - uy * 3)], 2.2)
    paper(c, [(296, 82), (306, 86), (312, 94), (318, 106), (340, 118), (420, 124), (474, 124)], 3.8)
    wheel(c, 276, 58, 26, STEEL)
    wheel(c, 276, 112, 25, RUBBER, rim=0.24)
    wheel(c, 330, 90, 26, RUBBER, rim=0.24)
    paper(c, [(190, 85.5), (262, 85.5), (290, 84)], 2.2)
    belt(c, ox, oy, 9, 276, 58, 12)
    gear(c, ox, oy, 8.5, 15, STEEL)
    gear(c, 276, 58, 11.5, 20, STEEL)
    c.turn_arrow(330, 90, 33, 33, 70, -30)
    c.arrow(184, 104, 222, 104)
    c.arrow(404, 112, 444, 112)


def knife_drum(c, blades):
    bed(c)
    motor(c, 124, 76, length=104, height=52, shaft=0, mounted=FLOOR - 3)
    gearbox(c, 124, 76, 34, 48)
    coupling(c, 159, 76, r=12)
    c.shaded_polygon([(190, 22), (210, 22), (210, FLOOR - 3), (190, FLOOR - 3)], [(0.0, lighter(DARK_STEEL, 0.4)), (1.0, DARK_STEEL)],
                     "x")
    bar(c, 181, 226, 54, 6)
    c.shaded_box(186, 60, 214, 92, round_bar(lighter(DARK_STEEL, 0.2)), radius=2.5)
    bar(c, 181, 190, 76, 6)
    bar(c, 205, 226, 112, 6)
    top, bottom, r = 55, 112, 27
    drum(c, 224, 400, bottom, 26, (142, 152, 162), face=STEEL)
    # Sheet coming forward between the drums.
    c.shaded_polygon([(228, 82), (398, 82), (398, 87), (228, 87)], flat_plate(PAPER), edge=darker(PAPER, 0.45))
    drum(c, 224, 400, top, r, STEEL, face=lighter(STEEL, 0.1))
    c.oval(400, top, r * 0.26 * 0.75, r * 0.75, None, DARK_STEEL, 0.7)

    def helix(start, body, flank):
        points = []
        for i in range(41):
            t = i / 40
            a = start + 62 * t
            points.append((228 + 166 * t + r * 0.26 * math.sin(math.radians(a)) * 0.4, top - r * math.cos(math.radians(a))))
        c.path([(x, y + 2.4) for x, y in points], darker(STEEL, 0.62), 6.4)
        c.path(points, INK, 6.4)
        c.path(points, body, 4.6)
        c.path([(x, y - 1.6) for x, y in points], flank, 1.4)
        for i in range(3, 40, 6):
            x, y = points[i]
            c.circle(x, y + 0.6, 1.3, darker(body, 0.55), None)
    helix(36, lighter(ORANGE, 0.1), WHITE)
    if blades > 1:
        helix(96, lighter(ORANGE, 0.1), WHITE)
    c.path([(228, 94), (394, 101)], INK, 4.8)
    c.path([(228, 94), (394, 101)], lighter(ORANGE, 0.3), 3.0)
    hub(c, 401, top, 10, stub=34, shaft=5.5)
    hub(c, 401, bottom, 10, stub=34, shaft=5.5)
    c.shaded_polygon([(420, 22), (438, 22), (438, FLOOR - 3), (420, FLOOR - 3)], [(0.0, lighter(DARK_STEEL, 0.4)), (1.0, DARK_STEEL)],
                     "x")
    for y in (top, bottom):
        c.shaded_box(417, y - 14, 441, y + 14, round_bar(lighter(DARK_STEEL, 0.25)), radius=2.5)
        bar(c, 441, 448, y, 5)
    c.turn_arrow(452, top, 11, 22, 70, -70, width=3.0)
    c.turn_arrow(452, bottom, 11, 22, -70, 70, width=3.0)


def cross_cutter(c):
    knife_drum(c, 1)


def cross_cutter_two_knives(c):
    knife_drum(c, 2)


def glue_unit(c):
    bed(c)
    motor(c, 132, 76, length=92, height=42, mounted=FLOOR - 3)
    coupling(c, 142, 76, r=9.5)
    bar(c, 164, 184, 76, 5)
    # Gear pump, cut open.
    c.shaded_box(180, 28, 262, 124, flat_plate(lighter(DARK_STEEL, 0.25)), radius=5.0)
    for x in (188, 254):
        for y in (36, 116):
            c.circle(x, y, 3.0, DARK_STEEL, width=0.7)
    c.box(200, 66, 270, 86, AMBER, darker(AMBER, 0.5), 1.0)
    c.circle(221, 56, 23, AMBER, darker(AMBER, 0.5), 1.0)
    c.circle(221, 96, 23, AMBER, darker(AMBER, 0.5), 1.0)
    gear(c, 221, 57, 18.6, 13, STEEL, depth=3.4)
    gear(c, 221, 95, 18.6, 13, STEEL, phase=180.0 / 13, depth=3.4)
    c.turn_arrow(221, 57, 10, 10, 160, 380, width=2.2)
    c.shaded_box(180, 134 - 10, 262, FLOOR - 3, flat_plate(DARK_STEEL))
    # Heated hose to the nozzle head.
    hose = smooth([(262, 76), (284, 75), (300, 62), (312, 45), (326, 39), (340, 40)])
    c.path(hose, INK, 11.0)
    c.path(hose, (88, 94, 104), 9.0)
    c.path([(x, y - 1.5) for x, y in hose], (150, 156, 164), 1.6)
    c.shaded_box(256, 66, 270, 86, round_bar(BRASS), radius=1.0)
    c.shaded_box(340, 30, 374, 84, flat_plate(lighter(ACCENT, 0.15)), radius=3.0)
    c.shaded_box(332, 32, 344, 48, round_bar(BRASS), radius=1.0)
    c.shaded_polygon([(347, 84), (367, 84), (360, 100), (354, 100)], [(0.0, lighter(STEEL, 0.3)), (1.0, DARK_STEEL)], "x")
    # Board with its line of glue.
    c.shaded_polygon([(280, 108), (478, 108), (478, 114), (280, 114)], flat_plate(KRAFT))
    c.path([(361, 106.5), (474, 106.5)], darker(AMBER, 0.45), 4.4)
    c.path([(361, 106.5), (474, 106.5)], AMBER, 3.0)
    c.polygon([(355, 100), (359, 100), (360, 108), (354, 108)], AMBER, darker(AMBER, 0.5), 0.6)
    for x in (296, 336, 392, 432, 468):
        wheel(c, x, 124, 8.5, STEEL)
    c.arrow(398, 92, 446, 92)


def accelerating_belt(c):
    bed(c)
    motor(c, 128, 92, length=92, height=42, shaft=0, mounted=FLOOR - 3)
    ox, oy = angle_gearbox(c, 128, 92, 40)
    # Side frame, end rollers, suction box, belt.
    for x in (262, 426):
        c.shaded_polygon([(x - 6, 82), (x + 6, 82), (x + 9, FLOOR - 3), (x - 9, FLOOR - 3)],
                         [(0.0, lighter(DARK_STEEL, 0.4)), (1.0, DARK_STEEL)], "x")
    c.shaded_box(232, 72, 456, 92, flat_plate(lighter(ACCENT, 0.30)), radius=2.0)
    for i in range(9):
        c.box(252 + i * 21, 78, 264 + i * 21, 86, darker(ACCENT, 0.25), None, radius=1.5)
    belt(c, 232, 82, 19, 456, 82, 19, toothed=False)
    wheel(c, 232, 82, 18, STEEL)
    wheel(c, 456, 82, 18, STEEL)
    belt(c, ox, oy, 9, 232, 82, 10)
    gear(c, ox, oy, 8.5, 15, STEEL)
    gear(c, 232, 82, 9.5, 17, STEEL)
    # Blanks on the belt, gap growing.
    for x, width in ((250, 56), (324, 56), (410, 56)):
        c.polygon([(x, 58.4), (x + width, 58.4), (x + width + 9, 50), (x + 9, 50)], lighter(KRAFT, 0.35))
        c.polygon([(x, 58.4), (x + width, 58.4), (x + width, 61), (x, 61)], darker(KRAFT, 0.1))
        c.path([(x + width * 0.35, 58), (x + width * 0.35 + 9, 50)], darker(KRAFT, 0.4), 0.7)
        c.path([(x + width * 0.7, 58), (x + width * 0.7 + 9, 50)], darker(KRAFT, 0.4), 0.7)
    for x in (300, 350, 400):
        c.arrow(x, 97, x, 112, width=3.0)
    c.arrow(356, 38, 420, 38)


def lift_table(c):
    bed(c)
    motor(c, 124, 98, length=96, height=48, mounted=FLOOR - 3)
    coupling(c, 134, 98, r=11)
    bar(c, 190, 420, 112, 4)
    c.shaded_box(164, 84, 196, 126, flat_plate(lighter(DARK_STEEL, 0.2)), radius=3.0)
    c.circle(180, 104, 3.4, darker(DARK_STEEL, 0.3))
    bar(c, 156, 164, 98, 5)
    # Guide columns and spindles.
    c.shaded_box(226, 14, 430, 22, flat_plate(DARK_STEEL), radius=1.5)
    for x in (240, 416):
        screw_upright(c, x, 22, 104, 6.5)
        c.shaded_box(x - 17, 100, x + 17, 126, flat_plate(lighter(DARK_STEEL, 0.2)), radius=3.0)
        c.path([(x - 9, 107), (x, 118), (x + 9, 107)], darker(DARK_STEEL, 0.45), 1.2)
    c.shaded_box(212, 124, 444, FLOOR - 3, flat_plate(DARK_STEEL))
    stack(c, 276, 40, 372, 78, 9)
    c.shaded_box(228, 78, 428, 88, flat_plate(lighter(ACCENT, 0.2)), radius=1.5)
    for x in (240, 416):
        c.shaded_box(x - 12, 72, x + 12, 94, round_bar(BRASS), "x", radius=2.0)
    c.arrow(458, 122, 458, 40, width=5, both=True)
    # Light barrier that watches the top of the pile.
    c.box(254, 32, 262, 40, GRAPHITE, radius=1.0)
    c.box(390, 32, 398, 40, GRAPHITE, radius=1.0)
    for i in range(16):
        c.path([(264 + i * 8, 36), (267 + i * 8, 36)], (214, 40, 40), 1.0)


def stack_pusher(c):
    bed(c)
    motor(c, 116, 84, length=92, height=42, mounted=FLOOR - 3)
    coupling(c, 126, 84, r=9.5)
    bar(c, 148, 176, 84, 4.5)
    c.shaded_box(164, 64, 178, FLOOR - 3, flat_plate(DARK_STEEL), radius=1.5)
    screw(c, 178, 336, 84, 6.5, 7.0)
    c.shaded_box(336, 64, 350, FLOOR - 3, flat_plate(DARK_STEEL), radius=1.5)
    # Rail and carriage with the pusher plate.
    c.shaded_box(178, 116, 472, 126, [(0.0, lighter(STEEL, 0.5)), (0.5, STEEL), (1.0, DARK_STEEL)])
    c.shaded_box(178, 126, 472, FLOOR - 3, flat_plate(DARK_STEEL))
    c.shaded_box(236, 66, 282, 112, flat_plate(lighter(ACCENT, 0.2)), radius=3.0)
    c.shaded_box(242, 72, 276, 96, round_bar(BRASS), radius=2.0)
    for x in (242, 266):
        c.shaded_box(x, 110, x + 14, 120, flat_plate(GRAPHITE), radius=1.5)
    c.shaded_box(280, 50, 362, 58, [(0.0, lighter(STEEL, 0.5)), (1.0, DARK_STEEL)], radius=1.5)
    c.shaded_polygon([(258, 66), (282, 66), (282, 50), (270, 50)], flat_plate(lighter(ACCENT, 0.2)))
    c.shaded_box(360, 30, 369, 114, [(0.0, lighter(ORANGE, 0.35)), (1.0, darker(ORANGE, 0.15))], "x", radius=1.5)
    c.shaded_box(350, 112, 478, 118, flat_plate(STEEL), radius=1.0)
    stack(c, 371, 44, 452, 111, 14)
    c.arrow(196, 42, 254, 42, width=4.4)
    c.arrow(210, 104, 190, 104, width=2.6)


def hoist(c):
    bed(c)
    # Mast.
    c.shaded_box(222, 10, 246, FLOOR - 3, [(0.0, lighter(ACCENT, 0.45)), (0.5, lighter(ACCENT, 0.1)), (1.0, darker(ACCENT, 0.2))], "x")
    for i in range(7):
        y = 18 + i * 17
        c.path([(224, y), (244, y + 14)], darker(ACCENT, 0.35), 0.9)
    c.shaded_box(200, FLOOR - 8, 268, FLOOR - 3, flat_plate(DARK_STEEL))
    # Console that carries the drive and the lower pulley.
    c.shaded_polygon([(150, 70), (222, 70), (222, 84), (196, 84)], flat_plate(DARK_STEEL))
    c.shaded_box(160, 112, 222, 122, flat_plate(DARK_STEEL))
    motor(c, 140, 50, length=96, height=44, shaft=0)
    ox, oy = angle_gearbox(c, 140, 50, 44)
    belt(c, ox, oy, 18, ox, 116, 15)
    gear(c, ox, oy, 17, 28, STEEL, depth=1.6)
    gear(c, ox, 116, 14, 22, STEEL, depth=1.5)
    # Carriage clamped to the belt, fork with its load.
    c.shaded_box(186, 70, 288, 100, flat_plate(lighter(ORANGE, 0.10)), radius=3.0)
    c.shaded_box(186, 76, 200, 94, flat_plate(GRAPHITE), radius=1.5)
    for x in (218, 250):
        for y in (76, 94):
            c.circle(x, y, 4.2, STEEL)
    c.shaded_polygon([(288, 68), (297, 68), (297, 102), (424, 102), (424, 108), (288, 108)], flat_plate(GRAPHITE))
    stack(c, 308, 48, 406, 101, 8)
    c.arrow(456, 124, 456, 34, width=5, both=True)
    c.turn_arrow(ox, oy, 27, 27, -150, -60, width=2.8)


def turntable(c):
    bed(c)
    motor(c, 116, 96, length=92, height=44, mounted=FLOOR - 3)
    coupling(c, 126, 96, r=10)
    bar(c, 148, 170, 96, 5)
    # Slewing ring with its toothed wheel, worm in front of it.
    x, y = 344, 92
    c.shadow(232, 456, FLOOR - 5, 6.0, 0.35)
    c.shaded_polygon([(x - 70, 112), (x + 70, 112), (x + 84, FLOOR - 3), (x - 84, FLOOR - 3)],
                     [(0.0, lighter(DARK_STEEL, 0.4)), (0.5, DARK_STEEL), (1.0, darker(DARK_STEEL, 0.3))], "x")
    ring(c, x, 106, 104, 26, 10, BRASS)
    for i in range(60):
        a = math.radians(180 * i / 60.0 + 1.5)
        px, py = x + 104 * math.cos(a), 106 + 26 * math.sin(a)
        c.path([(px, py), (px, py + 10)], darker(BRASS, 0.5), 1.1)
    ring(c, x, 88, 112, 27, 9, lighter(ACCENT, 0.25))
    c.shaded_oval(x, 88, 98, 22.5, [(0.0, lighter(STEEL, 0.15)), (1.0, lighter(STEEL, 0.45))], edge=DARK_STEEL, width=0.7)
    screw(c, 172, 262, 112, 10, 9.0)
    c.shaded_box(158, 80, 174, FLOOR - 3, flat_plate(lighter(DARK_STEEL, 0.15)), radius=2.0)
    c.circle(166, 96, 3.2, darker(DARK_STEEL, 0.3))
    c.circle(166, 112, 3.2, darker(DARK_STEEL, 0.3))
    c.shaded_box(258, 98, 270, FLOOR - 3, flat_plate(DARK_STEEL), radius=1.5)
    # Pile on the table.
    stack(c, 304, 42, 372, 86, 6, shift=18.0)
    c.turn_arrow(x, 88, 104, 24, 150, 35, width=4.0)
    c.turn_arrow(x, 88, 104, 24, -20, -65, width=4.0)


def ring(c, x, y, rx, ry, height, colour):
    """A flat disc with a rim of the given height."""
    points = [(x - rx, y)] + arc(x, y + height, rx, 180, 0, ry=ry, step=3) + [(x + rx, y)]
    c.shaded_polygon(points, [(0.0, darker(colour, 0.25)), (0.3, lighter(colour, 0.45)), (0.6, colour), (1.0, darker(colour, 0.45))], "x")
    c.shaded_oval(x, y, rx, ry, [(0.0, lighter(colour, 0.2)), (1.0, lighter(colour, 0.45))])


def gantry(c):
    # Legs and beam with its rack.
    for x in (34, 440):
        c.shaded_box(x, 84, x + 18, FLOOR, [(0.0, lighter(ACCENT, 0.4)), (1.0, darker(ACCENT, 0.1))], "x")
        c.shaded_box(x - 8, FLOOR - 3, x + 26, FLOOR + 2, flat_plate(DARK_STEEL))
    c.shaded_box(14, 72, 474, 88, [(0.0, lighter(ACCENT, 0.5)), (0.5, lighter(ACCENT, 0.15)), (1.0, darker(ACCENT, 0.15))])
    teeth = [(14, 72)]
    x = 16.0
    while x < 470:
        teeth += [(x, 72), (x + 1.4, 67.5), (x + 3.2, 67.5), (x + 4.6, 72)]
        x += 5.6
    teeth += [(474, 72), (474, 75), (14, 75)]
    c.shaded_polygon(teeth, flat_plate(STEEL), width=0.7)
    # Carriage: rollers on the beam, motor with angle gearbox, pinion in the rack.
    c.shaded_box(206, 62, 348, 100, [(0.0, (238, 150, 82)), (1.0, (205, 104, 34))], radius=4.0)
    c.box(222, 70, 300, 94, None, darker(ORANGE, 0.35), 0.8, radius=2.0)
    for x in (220, 334):
        wheel(c, x, 96, 9, STEEL)
    motor(c, 296, 40, length=98, height=40, shaft=0)
    ox, oy = angle_gearbox(c, 296, 40, 40)
    gear(c, ox, 57.5, 13, 16, STEEL, depth=2.4)
    gear(c, ox, oy, 6, 9, STEEL, depth=1.6)
    # Mast with gripper and load.
    c.shaded_box(262, 100, 286, 112, [(0.0, lighter(STEEL, 0.4)), (1.0, DARK_STEEL)], "x")
    c.shaded_box(224, 110, 324, 116, flat_plate(GRAPHITE), radius=1.0)
    for x in (226, 316):
        c.shaded_box(x, 114, x + 6, FLOOR - 2, flat_plate(GRAPHITE), "x", radius=1.0)
    stack(c, 234, 122, 308, FLOOR, 4, shift=6.0)
    c.arrow(372, 48, 452, 48, width=5, both=True)


SCENES = {
    ("M1", 1, 1): unwinder,
    ("M1", 2, 1): infeed,
    ("M1", 3, 1): web_guide,
    ("M1", 5, 1): printing_unit,
    ("M1", 6, 1): varnish_unit,
    ("M1", 8, 1): creasing_unit,
    ("M1", 9, 1): folding_roller,
    ("M1", 11, 1): cross_cutter,
    ("M1", 11, 2): cross_cutter_two_knives,
    ("M1", 12, 1): glue_unit,
    ("M1", 14, 1): accelerating_belt,
    ("M1", 17, 1): lift_table,
    ("M1", 20, 1): stack_pusher,
    ("M2", 1, 1): hoist,
    ("M2", 2, 1): turntable,
    ("M2", 4, 1): gantry,
}

# Servos whose menu key has a source of its own, twice as fine as the page's picture.
FINE = [("M1", 1, 1), ("M1", 5, 1), ("M1", 11, 2), ("M1", 17, 1), ("M2", 2, 1)]


def draw_scene(key, scale):
    canvas = Canvas(WIDTH, HEIGHT, scale)
    SCENES[key](canvas)
    return canvas
