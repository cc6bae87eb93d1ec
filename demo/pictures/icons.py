"""Footer pictures, 96 x 64 units: strong outlines that can be told apart at arm's length."""

import math

from PIL import ImageFont

from kit import ACCENT, GREEN, INK, KRAFT, ORANGE, PANEL_GREY, PAPER, WHITE, Canvas, darker, lighter

WIDTH, HEIGHT = 96, 64
FONT = "/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf"
DARK = (38, 48, 60)


def text(c, x, y, words, size, colour):
    font = ImageFont.truetype(FONT, round(size * c.scale))
    c.draw.text((x * c.scale, y * c.scale), words, fill=colour, font=font, anchor="mm")


def motor(c, x, y, size=1.0, colour=DARK):
    """Motor with flange and shaft, from x on, axis at y, 54 x 26 at size 1."""
    def box(x0, y0, x1, y1, fill, radius=0.0):
        c.box(x + x0 * size, y + y0 * size, x + x1 * size, y + y1 * size, fill, None, radius=radius * size)
    box(0, -10, 12, 10, colour, 3)
    box(9, -13, 37, 13, colour, 2)
    for rib in (-8, -3, 2, 7):
        box(13, rib, 33, rib + 1.6, lighter(colour, 0.45))
    box(38, -15, 43, 15, colour, 1)
    box(43, -4, 54, 4, colour, 1)
    box(16, -19, 24, -12, ORANGE, 2)


def badge(c, x, y, words):
    c.circle(x, y, 11, ACCENT, WHITE, 1.6)
    text(c, x, y + 0.4, words, 15, WHITE)


def empty(c):
    """A footer key without a function."""


def leave(c):
    c.polygon([(20, 8), (52, 8), (52, 18), (46, 18), (46, 14), (26, 14), (26, 50), (46, 50), (46, 46), (52, 46), (52, 56), (20, 56)],
              DARK, None)
    c.polygon([(38, 27), (62, 27), (62, 17), (80, 32), (62, 47), (62, 37), (38, 37)], ACCENT, WHITE, 1.2)


def arrow_up(c):
    motor(c, 38, 36)
    c.polygon([(18, 10), (34, 30), (24, 30), (24, 54), (12, 54), (12, 30), (2, 30)], ACCENT, WHITE, 1.2)


def arrow_down(c):
    motor(c, 38, 36)
    c.polygon([(18, 56), (34, 36), (24, 36), (24, 12), (12, 12), (12, 36), (2, 36)], ACCENT, WHITE, 1.2)


def limits(c):
    """Engine picture: limits and access of a value are edited."""
    motor(c, 6, 34)
    c.polygon([(66, 8), (92, 8), (92, 13), (66, 13)], DARK, None)
    c.polygon([(66, 51), (92, 51), (92, 56), (66, 56)], DARK, None)
    c.polygon([(79, 15), (88, 26), (82, 26), (82, 38), (88, 38), (79, 49), (70, 38), (76, 38), (76, 26), (70, 26)], ORANGE, WHITE, 1.0)


def parameters(c):
    motor(c, 4, 34, 0.86)
    for y, knob in ((16, 82), (32, 66), (48, 76)):
        c.box(58, y - 2, 92, y + 2, DARK, None, radius=2)
        c.box(knob - 4, y - 6.5, knob + 4, y + 6.5, ACCENT, WHITE, 1.0, radius=2)


def screen(c):
    c.box(12, 6, 84, 50, DARK, None, radius=4)
    c.box(17, 11, 79, 45, (222, 232, 240), None, radius=1.5)
    c.polygon([(40, 50), (56, 50), (60, 58), (36, 58)], DARK, None)
    for x in range(27, 79, 10):
        c.path([(x, 12), (x, 44)], (190, 206, 218), 0.7)
    for y in (20, 28, 36):
        c.path([(18, y), (78, y)], (190, 206, 218), 0.7)


def diagnosis(c):
    screen(c)
    c.path([(19, 32), (32, 32), (37, 17), (45, 41), (50, 28), (56, 32), (77, 32)], GREEN, 3.4)


def diagnosis_1(c):
    screen(c)
    c.path([(19, 40), (30, 38), (40, 20), (50, 17), (62, 17), (77, 17)], GREEN, 3.4)
    badge(c, 80, 48, "1")


def diagnosis_2(c):
    screen(c)
    for x, height in ((24, 14), (36, 24), (48, 18), (60, 28)):
        c.box(x, 44 - height, x + 8, 44, GREEN, None)
    badge(c, 80, 48, "2")


def password(level):
    def draw(c):
        colour = (DARK, DARK, DARK, DARK, DARK, ACCENT)[level]
        c.circle(26, 24, 16, colour, None)
        c.circle(22, 24, 5.5, PANEL_GREY, None)
        c.polygon([(38, 19), (88, 19), (92, 24), (88, 29), (82, 29), (82, 37), (74, 37), (74, 29), (68, 29), (68, 35), (61, 35), (61, 29),
                   (38, 29)], colour, None)
        for i in range(5):
            x = 20 + i * 14
            c.circle(x, 53, 5.2, GREEN if i < level else lighter(DARK, 0.78), DARK, 1.0)
        if level:
            return
        # Nobody is logged in: the key is crossed out.
        c.path([(12, 42), (84, 6)], PANEL_GREY, 7.0)
        c.path([(12, 42), (84, 6)], (196, 40, 40), 4.0)
    return draw


def converting_line(c):
    c.box(4, 52, 92, 57, DARK, None, radius=1)
    c.circle(19, 36, 15, DARK, None)
    c.circle(19, 36, 12, PAPER, None)
    c.circle(19, 36, 7.5, None, DARK, 1.2)
    c.circle(19, 36, 3.5, DARK, None)
    c.path([(22, 22), (38, 31), (62, 31), (68, 40)], DARK, 2.4)
    for x, y, r in ((44, 21, 9), (44, 41, 9)):
        c.circle(x, y, r, ACCENT, DARK, 1.4)
        c.circle(x, y, 2.4, WHITE, None)
    c.polygon([(54, 16), (64, 16), (64, 26), (59, 30), (54, 26)], DARK, None)
    for i in range(4):
        c.box(68, 47 - i * 5.2, 90, 51 - i * 5.2, KRAFT, DARK, 0.9)


def palletiser(c):
    c.box(4, 52, 92, 57, DARK, None, radius=1)
    for x in (8, 82):
        c.box(x, 10, x + 6, 52, DARK, None)
    c.box(6, 8, 90, 15, ACCENT, DARK, 1.2)
    c.box(36, 5, 58, 19, DARK, None, radius=2)
    c.box(44, 18, 50, 28, DARK, None)
    c.box(34, 27, 60, 31, DARK, None)
    c.box(37, 31, 57, 38, KRAFT, DARK, 1.0)
    for i in range(2):
        for j in range(2):
            c.box(28 + j * 20, 44 - i * 0 + 0, 47 + j * 20, 51, KRAFT, DARK, 1.0)


def overview(c):
    for x in (20, 51):
        for y in (8, 34):
            c.box(x, y, x + 25, y + 21, DARK, None, radius=3)
            c.box(x + 4, y + 4, x + 21, y + 9, lighter(ACCENT, 0.25), None, radius=1)
            c.box(x + 4, y + 12, x + 15, y + 16, lighter(DARK, 0.55), None, radius=1)


def faults(c):
    c.polygon([(48, 4), (84, 59), (12, 59)], (240, 190, 20), DARK, 4.0)
    c.polygon([(44.5, 22), (51.5, 22), (50, 42), (46, 42)], DARK, None)
    c.circle(48, 50, 3.8, DARK, None)


def machine(c):
    points = []
    for i in range(10):
        for offset, r in ((-0.30, 20), (-0.18, 27), (0.18, 27), (0.30, 20)):
            a = 2 * math.pi * (i + offset) / 10
            points.append((48 + r * math.cos(a), 32 + r * math.sin(a)))
    c.polygon(points, DARK, None)
    c.circle(48, 32, 9, PANEL_GREY, darker(DARK, 0.2), 1.0)


# Pictures of every resolution: file stem -> drawing. The library appends "_<resolution>.gif".
SIZED = {
    "Standard/empty": empty,
    "Standard/F_Exit": leave,
    "Standard/F_PageUp": arrow_up,
    "Standard/F_PageDown": arrow_down,
    "Standard/F_engine": limits,
    "Standard/Machinesymbol_M1": converting_line,
    "Standard/Machinesymbol_M2": palletiser,
    "Servo/Servo": parameters,
    "Servo/Servo_Diag": diagnosis,
    "Servo/Servo_Diag1": diagnosis_1,
    "Servo/Servo_Diag2": diagnosis_2,
} | {f"Standard/Pw{level}": password(level) for level in range(6)}

# Pictures that the footer section of Servo/Servo.ini names as they are.
SINGLE = {
    "Standard/F_Overview": overview,
    "Standard/F_Faults": faults,
    "Standard/F_Limits": limits,
    "Standard/F_Previous": arrow_up,
    "Standard/F_Next": arrow_down,
    "Standard/F_Diagnosis": diagnosis,
    "Standard/F_Diagnosis1": diagnosis_1,
    "Standard/F_Diagnosis2": diagnosis_2,
    "Standard/F_Machine": machine,
}


def draw_icon(drawing, scale):
    canvas = Canvas(WIDTH, HEIGHT, scale)
    drawing(canvas)
    return canvas
