"""Drawing kit: shapes with simple shading on a canvas whose unit is one pixel of the 1280 panel.

Everything is drawn several times larger and scaled down at the end, which smooths the edges."""

import math

from PIL import Image, ImageChops, ImageDraw, ImageFilter

PANEL_GREY = (192, 192, 192)
INK = (44, 50, 58)
STEEL = (186, 194, 202)
DARK_STEEL = (118, 128, 138)
GRAPHITE = (64, 70, 79)
RUBBER = (52, 66, 92)
PAPER = (247, 242, 229)
KRAFT = (206, 164, 112)
BRASS = (205, 168, 84)
AMBER = (232, 172, 60)
ACCENT = (0, 98, 165)
GREEN = (24, 140, 72)
ORANGE = (232, 112, 30)
WHITE = (255, 255, 255)


def mix(a, b, t):
    return tuple(round(x + (y - x) * t) for x, y in zip(a, b))


def lighter(colour, t):
    return mix(colour, WHITE, t)


def darker(colour, t):
    return mix(colour, (16, 20, 26), t)


def round_bar(colour):
    """Shading across a round bar: light from above, a little light back from the floor."""
    return [(0.0, darker(colour, 0.35)), (0.12, colour), (0.30, lighter(colour, 0.62)), (0.46, lighter(colour, 0.12)),
            (0.74, darker(colour, 0.34)), (0.92, darker(colour, 0.52)), (1.0, darker(colour, 0.36))]


def flat_plate(colour):
    return [(0.0, lighter(colour, 0.30)), (1.0, darker(colour, 0.18))]


class Canvas:
    def __init__(self, width, height, scale, background=PANEL_GREY):
        self.width, self.height, self.scale = width, height, scale
        self.image = Image.new("RGB", (round(width * scale), round(height * scale)), background)
        self.draw = ImageDraw.Draw(self.image)

    # Basics

    def px(self, points):
        return [(x * self.scale, y * self.scale) for x, y in points]

    def line_width(self, width):
        return max(1, round(width * self.scale))

    def polygon(self, points, fill, edge=INK, width=0.9):
        if fill is not None:
            self.draw.polygon(self.px(points), fill=fill)
        if edge is not None:
            self.path(list(points) + [points[0]], edge, width)

    def path(self, points, colour, width=1.0):
        """A line through the points with round joints and ends."""
        pixels, w = self.px(points), self.line_width(width)
        self.draw.line(pixels, fill=colour, width=w, joint="curve")
        r = w / 2
        if w > 2:
            for x, y in (pixels[0], pixels[-1]):
                self.draw.ellipse((x - r, y - r, x + r, y + r), fill=colour)

    def circle(self, x, y, r, fill=None, edge=INK, width=0.9):
        self.oval(x, y, r, r, fill, edge, width)

    def oval(self, x, y, rx, ry, fill=None, edge=INK, width=0.9):
        s = self.scale
        self.draw.ellipse(((x - rx) * s, (y - ry) * s, (x + rx) * s, (y + ry) * s), fill=fill,
                          outline=edge, width=self.line_width(width) if edge else 0)

    def box(self, x0, y0, x1, y1, fill, edge=INK, width=0.9, radius=0.0):
        s = self.scale
        self.draw.rounded_rectangle((x0 * s, y0 * s, x1 * s, y1 * s), radius * s, fill=fill,
                                    outline=edge, width=self.line_width(width) if edge else 0)

    # Shading

    def shaded(self, bounds, stops, across, shape):
        """Fills what shape(draw, to_pixels) paints with a run of colours; across: 'y' runs down, 'x' to the right."""
        s = self.scale
        left, top = math.floor(bounds[0] * s), math.floor(bounds[1] * s)
        width, height = max(1, math.ceil(bounds[2] * s) - left), max(1, math.ceil(bounds[3] * s) - top)
        length = height if across == "y" else width
        run = [at(stops, (i + 0.5) / length) for i in range(length)]
        strip = Image.new("RGB", (1, length) if across == "y" else (length, 1))
        strip.putdata(run)
        mask = Image.new("L", (width, height), 0)
        shape(ImageDraw.Draw(mask), lambda points: [(x * s - left, y * s - top) for x, y in points])
        self.image.paste(strip.resize((width, height)), (left, top), mask)

    def shaded_polygon(self, points, stops, across="y", edge=INK, width=0.9):
        xs, ys = [p[0] for p in points], [p[1] for p in points]
        self.shaded((min(xs), min(ys), max(xs), max(ys)), stops, across, lambda d, to: d.polygon(to(points), fill=255))
        if edge is not None:
            self.path(list(points) + [points[0]], edge, width)

    def shaded_box(self, x0, y0, x1, y1, stops, across="y", edge=INK, width=0.9, radius=0.0):
        def shape(d, to):
            (a, b), (c, e) = to([(x0, y0), (x1, y1)])
            d.rounded_rectangle((a, b, c, e), radius * self.scale, fill=255)
        self.shaded((x0, y0, x1, y1), stops, across, shape)
        if edge is not None:
            self.box(x0, y0, x1, y1, None, edge, width, radius)

    def shaded_oval(self, x, y, rx, ry, stops, across="y", edge=INK, width=0.9):
        def shape(d, to):
            (a, b), (c, e) = to([(x - rx, y - ry), (x + rx, y + ry)])
            d.ellipse((a, b, c, e), fill=255)
        self.shaded((x - rx, y - ry, x + rx, y + ry), stops, across, shape)
        if edge is not None:
            self.oval(x, y, rx, ry, None, edge, width)

    def shadow(self, x0, x1, y, depth=5.0, strength=0.42):
        """Soft shadow on the floor, below and around y."""
        s = self.scale
        margin = 3 * depth
        left, top = round((x0 - margin) * s), round((y - margin) * s)
        size = (round((x1 - x0 + 2 * margin) * s), round(2 * margin * s))
        small = (max(1, size[0] // 8), max(1, size[1] // 8))
        mask = Image.new("L", small, 0)
        fx, fy = small[0] / size[0] * s, small[1] / size[1] * s
        ImageDraw.Draw(mask).ellipse((margin * fx, (margin - depth) * fy, small[0] - margin * fx, (margin + depth) * fy),
                                     fill=round(255 * strength))
        mask = mask.filter(ImageFilter.GaussianBlur(depth * fx * 0.45)).resize(size, Image.BILINEAR)
        self.image.paste((40, 46, 54), (left, top), mask)

    def glaze(self, points, colour, strength):
        """A translucent polygon."""
        xs, ys = [p[0] for p in points], [p[1] for p in points]
        s = self.scale
        left, top = math.floor(min(xs) * s), math.floor(min(ys) * s)
        mask = Image.new("L", (math.ceil(max(xs) * s) - left + 1, math.ceil(max(ys) * s) - top + 1), 0)
        ImageDraw.Draw(mask).polygon([(x * s - left, y * s - top) for x, y in points], fill=round(255 * strength))
        self.image.paste(colour, (left, top), mask)

    # Signs

    def arrow(self, x0, y0, x1, y1, colour=ACCENT, width=4.0, both=False):
        length = math.hypot(x1 - x0, y1 - y0)
        ux, uy = (x1 - x0) / length, (y1 - y0) / length
        head, half = width * 2.3, width * 1.6

        def at_place(along, aside):
            return (x0 + ux * along - uy * aside, y0 + uy * along + ux * aside)
        tail = [at_place(head, -width / 2), at_place(head, -half), at_place(0, 0), at_place(head, half), at_place(head, width / 2)] \
            if both else [at_place(0, -width / 2), at_place(0, width / 2)]
        tip = [at_place(length - head, width / 2), at_place(length - head, half), at_place(length, 0),
               at_place(length - head, -half), at_place(length - head, -width / 2)]
        self.polygon(tail + tip, colour, lighter(colour, 0.75), 0.8)

    def turn_arrow(self, x, y, rx, ry, start, end, colour=ACCENT, width=3.2):
        """An arc from angle start to end (degrees, clockwise from the right) with an arrow head at its end."""
        points = arc(x, y, rx, start, end, ry=ry, step=2.0)
        length, shaft = width * 2.3, []
        tip = points[-1]
        for point in points:
            if math.dist(point, tip) < length * 0.8:
                break
            shaft.append(point)
        back = shaft[-1]
        ux, uy = tip[0] - back[0], tip[1] - back[1]
        size = math.hypot(ux, uy)
        ux, uy = ux / size, uy / size
        half = width * 1.5
        head = [tip, (back[0] - uy * half, back[1] + ux * half), (back[0] + uy * half, back[1] - ux * half)]
        self.path(shaft, lighter(colour, 0.75), width + 1.4)
        self.polygon(head, colour, lighter(colour, 0.75), 1.4)
        self.path(shaft, colour, width)
        self.polygon(head, colour, None)

    # Result

    def finished(self, width, height):
        """The drawing, evenly scaled to fit width x height and centred on the panel's grey."""
        factor = min(width / self.width, height / self.height)
        size = (min(width, round(self.width * factor)), min(height, round(self.height * factor)))
        result = Image.new("RGB", (width, height), PANEL_GREY)
        result.paste(self.image.resize(size, Image.LANCZOS), ((width - size[0]) // 2, height - size[1]))
        return result


def at(stops, t):
    for (t0, a), (t1, b) in zip(stops, stops[1:]):
        if t <= t1:
            return mix(a, b, (t - t0) / (t1 - t0))
    return stops[-1][1]


def arc(x, y, r, start, end, ry=None, step=4.0):
    """Points on an arc, degrees clockwise from the right."""
    count = max(2, int(abs(end - start) / step))
    ry = r if ry is None else ry
    angles = [math.radians(start + (end - start) * i / count) for i in range(count + 1)]
    return [(x + r * math.cos(a), y + ry * math.sin(a)) for a in angles]


def smooth(points, steps=8):
    """A curve through the points."""
    result = []
    padded = [points[0]] + list(points) + [points[-1]]
    for p0, p1, p2, p3 in zip(padded, padded[1:], padded[2:], padded[3:]):
        for i in range(steps):
            t = i / steps
            result.append(tuple(
                0.5 * (2 * b + (c - a) * t + (2 * a - 5 * b + 4 * c - d) * t * t + (3 * b - a - 3 * c + d) * t ** 3)
                for a, b, c, d in zip(p0, p1, p2, p3)))
    return result + [points[-1]]


# Small but telling colours that a palette made from areas alone would lose.
SIGNALS = [ACCENT, GREEN, ORANGE, AMBER, BRASS, KRAFT, PAPER, WHITE, (0, 150, 205), (210, 30, 120), (245, 205, 30), (214, 40, 40)]


def with_palette(image, background=PANEL_GREY):
    """Palette picture of at most 256 colours in which the background keeps its exact value."""
    areas = image.quantize(colors=224, method=Image.MEDIANCUT, dither=Image.NONE)
    signals = SIGNALS + [darker(colour, 0.4) for colour in SIGNALS]
    entries = areas.getpalette()[:224 * 3] + [value for colour in signals for value in colour]
    table = Image.new("P", (1, 1))
    table.putpalette((entries + entries[:768])[:768])
    reduced = image.quantize(palette=table, dither=Image.NONE)
    entries = (reduced.getpalette() + [0] * 768)[:768]
    entries[765:768] = background
    difference = ImageChops.difference(image, Image.new("RGB", image.size, background))
    red, green, blue = difference.split()
    same = ImageChops.lighter(ImageChops.lighter(red, green), blue).point(lambda v: 255 if v < 2 else 0)
    result = Image.new("P", image.size)
    result.putpalette(entries)
    result.paste(reduced)
    result.paste(255, (0, 0) + image.size, same)
    return result
