#!/usr/bin/python3
"""Draws the bitmaps of the language libraries.

usage: draw.py FOLDER

Writes NUMBER.bmp for every bitmap of the user interface. All of them are described here as shapes,
in the pixels of a screen with 96 dots per inch, and drawn at twice that size, so that they are sharp
on finer screens, too. The sample picture is drawn as it is: its pixels are screened one by one.
"""

import math
import os
import sys

from PIL import Image, ImageDraw, ImageFont, ImageOps

SCALE = 2  # pixels for one of the description
SMOOTH = 4  # finer while drawing; edges become smooth when it is reduced

PANEL = (232, 238, 244)
PANEL_EDGE = (168, 180, 192)
LINER = (214, 196, 158)
LINER_EDGE = (182, 162, 120)
PAPER = (255, 255, 255)
PAPER_EDGE = (120, 128, 136)
INK = (16, 16, 16)
ACCENT = (0, 103, 184)

FONT = "DejaVuSans-Bold.ttf"


class Canvas:
    """Shapes at positions and sizes of the description."""

    def __init__(self, width, height, color):
        self.unit = SCALE * SMOOTH
        self.image = Image.new("RGB", (width * self.unit, height * self.unit), color)
        self.draw = ImageDraw.Draw(self.image)

    def points(self, *values):
        return [round(value * self.unit) for value in values]

    def box(self, x, y, width, height, fill, edge=None, radius=0, line=1):
        self.draw.rounded_rectangle(
            self.points(x, y, x + width, y + height), radius * self.unit, fill, edge,
            round(line * self.unit))

    def polygon(self, corners, fill):
        self.draw.polygon([tuple(self.points(*corner)) for corner in corners], fill)

    def text(self, x, y, size, text, fill, anchor="mm"):
        font = ImageFont.truetype(FONT, round(size * self.unit))
        self.draw.text(self.points(x, y), text, fill, font, anchor)

    def bars(self, x, y, width, height, fill, pattern="2113212311321213"):
        """A bar code of bars and gaps that are so many units wide."""
        unit = width / sum(int(digit) for digit in pattern)
        at = x
        for i, digit in enumerate(pattern):
            end = at + int(digit) * unit
            if i % 2 == 0:
                self.draw.rectangle(self.points(at, y, end, y + height), fill)
            at = end

    def arrow(self, x, y, length, fill, down=True):
        """From its tail at (x, y) downwards, or to the right."""
        shapes = [[(-2, 0), (2, 0), (2, length - 8), (-2, length - 8)],
                  [(-6, length - 8), (6, length - 8), (0, length)]]
        for shape in shapes:
            self.polygon([(x + a, y + b) if down else (x + b, y + a) for a, b in shape], fill)

    def finish(self):
        size = (self.image.width // SMOOTH, self.image.height // SMOOTH)
        return self.image.resize(size, Image.LANCZOS)


def printed(width, height):
    """What is printed on a label: a name, a bar code, some lines."""
    canvas = Canvas(width, height, PAPER)
    canvas.text(width / 2, height * 0.2, height * 0.26, "ABC", INK)
    canvas.bars(width * 0.12, height * 0.4, width * 0.76, height * 0.3, INK)
    canvas.box(width * 0.12, height * 0.79, width * 0.55, height * 0.05, INK)
    canvas.box(width * 0.12, height * 0.89, width * 0.38, height * 0.05, INK)
    return canvas.image


def orientation(turn, mirrored, negative):
    """The label as it leaves the printer: turn 0 portrait, 1 landscape, 2 and 3 the same turned by
    180 degrees."""
    canvas = Canvas(132, 127, PANEL)
    canvas.box(0, 0, 131.5, 126.5, PANEL, PANEL_EDGE)
    canvas.box(25, 1, 82, 125, LINER)
    for x in (25, 106):
        canvas.box(x, 1, 1, 125, LINER_EDGE)
    canvas.box(31, -8, 70, 16, PAPER, PAPER_EDGE, 3)
    canvas.box(31, 13, 70, 84, PAPER, PAPER_EDGE, 3)
    upright = turn % 2 == 0
    picture = printed(62, 76) if upright else printed(76, 62)
    if mirrored:
        picture = ImageOps.mirror(picture)
    picture = picture.rotate((0, 90, 180, 270)[turn], expand=True)
    if negative:
        picture = ImageOps.invert(picture)
        canvas.box(33, 15, 66, 80, INK, None, 2)
    canvas.image.paste(picture, tuple(canvas.points(35, 17)))
    canvas.arrow(66, 100, 22, ACCENT)
    return canvas.finish()


def stock():
    """Width, length and liners of a label."""
    canvas = Canvas(150, 149, PANEL)
    canvas.box(0, 0, 149.5, 148.5, PANEL, PANEL_EDGE)
    canvas.box(38, 1, 88, 147, LINER)
    for x in (38, 125):
        canvas.box(x, 1, 1, 147, LINER_EDGE)
    canvas.box(48, -10, 68, 26, PAPER, PAPER_EDGE, 3)
    canvas.box(48, 36, 68, 88, PAPER, PAPER_EDGE, 3)
    canvas.box(48, 134, 68, 30, PAPER, PAPER_EDGE, 3)

    def measure(x, y, width, height):
        across = width > 0
        canvas.box(x, y, max(width, 1), max(height, 1), ACCENT)
        for end in (0, 1):
            tip = (x + width * end, y + height * end)
            away = -5 if end else 5
            ends = [(away, -3), (away, 3)] if across else [(-3, away), (3, away)]
            canvas.polygon([tip] + [(tip[0] + a, tip[1] + b) for a, b in ends], ACCENT)

    measure(48, 26, 68, 0)
    measure(24, 36, 0, 88)
    for y in (36, 124):
        canvas.box(20, y, 28, 0.5, ACCENT)
    for x in (48, 116):
        canvas.box(x, 20, 0.5, 16, ACCENT)
    canvas.text(82, 80, 30, "A", PAPER_EDGE)
    return canvas.finish()


def banner():
    """The head of the page about the driver: labels that leave a printer."""
    width, height = 357, 137
    canvas = Canvas(width, height, PANEL)
    for y in range(height * canvas.unit):
        part = y / (height * canvas.unit)
        color = tuple(round(a + (b - a) * part) for a, b in zip((250, 252, 254), (208, 221, 234)))
        canvas.draw.line([(0, y), (width * canvas.unit, y)], color)
    canvas.box(24, 34, 112, 74, (62, 72, 84), None, 8)
    canvas.box(24, 34, 112, 20, (82, 94, 108), None, 8)
    canvas.box(36, 62, 34, 18, (150, 200, 160), (40, 48, 56), 2)
    for x in (82, 96, 110):
        canvas.box(x, 66, 8, 8, (190, 200, 210), None, 4)
    canvas.box(112, 88, 24, 8, (40, 48, 56))
    canvas.polygon([(128, 90), (352, 90), (357, 96), (357, 100), (128, 96)], LINER)
    for left in (146, 216, 286):
        canvas.box(left, 54, 60, 40, PAPER, PAPER_EDGE, 3)
        canvas.text(left + 30, 63, 10, "ABC", INK)
        canvas.bars(left + 6, 70, 48, 13, INK)
        canvas.box(left + 6, 87, 30, 2, INK)
    return canvas.finish()


def emblem():
    """A label with a bar code."""
    canvas = Canvas(60, 65, (240, 240, 240))
    canvas.box(6, 8, 48, 48, PAPER, ACCENT, 6, 2)
    canvas.text(30, 20, 13, "ZPL", ACCENT)
    canvas.bars(12, 30, 36, 18, INK, "211321231")
    return canvas.finish()


def sample():
    """Everything by which a screen is judged: letters, a bar code, a photo with soft shades,
    steps of grey and of colours."""
    width, height = 174, 150
    canvas = Canvas(width, height, PAPER)
    canvas.text(6, 12, 13, "Ample Co", INK, "lm")
    canvas.text(6, 25, 7, "No. 0815  25 kg", INK, "lm")
    canvas.bars(6, 33, 76, 24, INK, "21132123113212132231")
    for i in range(8):
        grey = round(i * 255 / 7)
        canvas.box(6 + i * 9.5, 62, 9.5, 10, (grey, grey, grey))
    for i, color in enumerate(((214, 40, 40), (240, 200, 30), (40, 150, 70), (40, 150, 200),
                               (50, 70, 170), (170, 60, 150))):
        canvas.box(6 + i * 12.7, 74, 12.7, 10, color)
    image = canvas.finish().resize((width, height), Image.LANCZOS)
    pixels = image.load()
    # The photo: an apple before a shaded wall.
    left, top, right, bottom = 90, 6, 168, 84
    for y in range(top, bottom):
        for x in range(left, right):
            wall = 0.95 - 0.5 * (y - top) / (bottom - top) - 0.1 * (x - left) / (right - left)
            color = [wall * 200, wall * 215, wall * 235]
            table = y - (top + 58)
            if table > 0:
                color = [190 - table * 3, 150 - table * 3, 105 - table * 3]
            dx, dy = (x - 129) / 27, (y - 50) / 25
            distance = dx * dx + dy * dy
            if distance < 1:
                depth = math.sqrt(1 - distance)
                light = max(0.0, -0.45 * dx - 0.55 * dy + 0.7 * depth)
                shine = max(0.0, light) ** 24
                color = [60 + 180 * light + 120 * shine, 14 + 60 * light + 190 * shine,
                         18 + 40 * light + 190 * shine]
            elif table > 0 and ((x - 136) / 32) ** 2 + ((y - 75) / 6) ** 2 < 1:
                color = [part * 0.55 for part in color]
            pixels[x, y] = tuple(min(255, max(0, round(part))) for part in color)
    # A gradient without any edge.
    for x in range(6, 168):
        for y in range(92, 144):
            part = (x - 6) / 161
            pixels[x, y] = tuple(round(255 * part) for _ in range(3)) if y < 118 else tuple(
                round(127.5 + 127.5 * math.cos(2 * math.pi * (part - shift / 3)))
                for shift in range(3))
    return image


def pictures():
    for number in range(16):
        yield 208 + number, orientation(number % 4, number & 4 != 0, number & 8 != 0), True
    yield 225, stock(), True
    yield 901, banner(), True
    yield 902, emblem(), True
    yield 110, sample(), False


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: draw.py FOLDER")
    os.makedirs(sys.argv[1], exist_ok=True)
    for number, image, few_colors in pictures():
        if few_colors:
            image = image.quantize(256, Image.MEDIANCUT)
        image.save(os.path.join(sys.argv[1], f"{number}.bmp"))


if __name__ == "__main__":
    main()
