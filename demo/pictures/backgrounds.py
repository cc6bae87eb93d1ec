"""Backgrounds of menu, page and diagnosis area: calm greys, frames where the controls stand.

Measures are design twips; a pixel is 15 of them at 1280 and the panel's factors scale the rest."""

from PIL import Image, ImageDraw

from kit import PANEL_GREY, at, darker, lighter

TWIPS = 15
FACTORS = {1280: (1.0, 1.0), 1024: (0.8, 0.75), 800: (0.625, 0.5859375)}
HEIGHTS = {1280: 1024, 1024: 768, 800: 600}

BASE = [(0.0, (190, 196, 203)), (0.5, (172, 180, 189)), (1.0, (154, 163, 174))]
LINE_DARK, LINE_LIGHT = (150, 156, 163), (222, 226, 230)
KEY_LIGHT, KEY_SHADOW = (255, 255, 255), (128, 128, 128)
RULE = (70, 112, 150)

# The menu's keys are not scaled: one grid for 800, one for all others.
KEY_GRID = {
    800: ((60, 5760), (1365, 3030, 4695, 6360), 5655, 5640, 1620),
    1280: ((105, 9195), (2340, 5175, 8010, 10845), 9015, 9015, 2760),
}


class Sheet:
    def __init__(self, resolution, width, height):
        """width, height: pixels."""
        self.fx, self.fy = FACTORS[resolution]
        self.image = Image.new("RGB", (width, height), PANEL_GREY)
        self.draw = ImageDraw.Draw(self.image)

    def x(self, twips):
        return int(twips * self.fx / TWIPS)

    def y(self, twips):
        return int(twips * self.fy / TWIPS)

    def gradient(self):
        for row in range(self.image.height):
            self.draw.line(((0, row), (self.image.width, row)), fill=at(BASE, row / self.image.height))

    def inset(self, x0, y0, x1, y1, fill=PANEL_GREY, margin=3):
        """A flat field, sunk into the page by its edges; pixels."""
        x0, y0, x1, y1 = x0 - margin, y0 - margin, x1 + margin - 1, y1 + margin - 1
        self.draw.rectangle((x0, y0, x1, y1), fill=fill)
        self.draw.line(((x0, y1), (x0, y0), (x1, y0)), fill=darker(LINE_DARK, 0.25))
        self.draw.line(((x0, y1), (x1, y1), (x1, y0)), fill=LINE_LIGHT)

    def field(self, x0, y0, x1, y1, fill=PANEL_GREY):
        self.inset(self.x(x0), self.y(y0), self.x(x1), self.y(y1), fill)

    def key(self, x0, y0, x1, y1, frame):
        """A raised key, its edges the same as those of a key that was pressed and released; pixels."""
        self.draw.rectangle((x0, y0, x1 - 1, y1 - 1), fill=PANEL_GREY)
        for ring in range(frame):
            a, b, c, d = x0 + ring, y0 + ring, x1 - 1 - ring, y1 - 1 - ring
            self.draw.line(((a, d), (a, b), (c, b)), fill=KEY_LIGHT)
            self.draw.line(((a, d), (c, d), (c, b + 1)), fill=KEY_SHADOW)

    def groove(self, x0, y0, x1, y1):
        """An engraved line; twips."""
        a, b, c, d = self.x(x0), self.y(y0), self.x(x1), self.y(y1)
        self.draw.line(((a, b), (c, d)), fill=(174, 177, 180))
        dx, dy = (1, 0) if x0 == x1 else (0, 1)
        self.draw.line(((a + dx, b + dy), (c + dx, d + dy)), fill=(208, 210, 212))


def page(resolution):
    sheet = Sheet(resolution, resolution, HEIGHTS[resolution])
    sheet.gradient()
    sheet.field(105, 1635, 5805, 2235)
    sheet.field(5940, 1635, 13245, 3825)
    sheet.field(105, 3900, 9120, 13665)
    sheet.field(9195, 3900, 18210, 13665)
    sheet.field(18285, 3900, 19095, 13665)
    return sheet.image


def menu(resolution):
    sheet = Sheet(resolution, resolution, HEIGHTS[resolution])
    sheet.gradient()
    sheet.field(105, 1635, 19095, 2205)
    lefts, tops, left_width, right_width, height = KEY_GRID.get(resolution, KEY_GRID[1280])
    for left, width in zip(lefts, (left_width, right_width)):
        for top in tops:
            edges = [edge // TWIPS for edge in (left, top, left + width, top + height)]
            sheet.key(*edges, 1 if resolution == 800 else 2)
    return sheet.image


def diagnosis(resolution):
    fx, fy = FACTORS[resolution]
    sheet = Sheet(resolution, int(18990 * fx / TWIPS), int(9765 * fy / TWIPS))
    # Rows of the actual values; the first row of each half is its heading.
    for left, right in ((105, 9150), (9495, 18840)):
        for row in range(1, 10):
            sheet.groove(left, 15 + 510 * row, right, 15 + 510 * row)
        y = sheet.y(15 + 510)
        sheet.draw.rectangle((sheet.x(left), y - 1, sheet.x(right), y), fill=RULE)
    sheet.groove(9322, 90, 9322, 5100)
    # Table: four columns of five.
    y = sheet.y(5190)
    sheet.draw.rectangle((sheet.x(105), y - 1, sheet.x(18840), y), fill=RULE)
    for row in range(6):
        sheet.groove(90, 5622 + 510 * row, 18870, 5622 + 510 * row)
    for column in range(5):
        sheet.groove(90 + 4695 * column, 5622, 90 + 4695 * column, 5622 + 510 * 5)
    edge = (0, 0, sheet.image.width - 1, sheet.image.height - 1)
    sheet.draw.rectangle(edge, outline=LINE_DARK)
    sheet.draw.line(((1, sheet.image.height - 2), (1, 1), (sheet.image.width - 2, 1)), fill=lighter(PANEL_GREY, 0.5))
    return sheet.image


def exact_palette(image):
    """Palette picture with the very colours of the image, which has at most 256."""
    colours = [colour for _, colour in image.getcolors(256)]
    places = {colour: index for index, colour in enumerate(sorted(colours))}
    result = Image.new("P", image.size)
    result.putpalette([value for colour in sorted(colours) for value in colour])
    result.putdata([places[colour] for colour in image.getdata()])
    return result
