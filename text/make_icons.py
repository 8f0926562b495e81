#!/usr/bin/env python3
"""Draws the plug-in's command icons as 32x32 RGBA PNG files in resource/.

Run once when an icon changes; the PNG files are committed beside it.
"""
import math
import os
import struct
import zlib

SIZE = 32
BLUE = (40, 110, 200, 255)
DARK = (40, 40, 48, 255)
ORANGE = (235, 140, 30, 255)
GREEN = (40, 160, 70, 255)
WHITE = (255, 255, 255, 255)


class Canvas:
    def __init__(self):
        self.pixels = [[(0, 0, 0, 0)] * SIZE for _ in range(SIZE)]

    def plot(self, x, y, colour):
        if 0 <= x < SIZE and 0 <= y < SIZE:
            self.pixels[y][x] = colour

    def fill(self, inside, colour):
        for y in range(SIZE):
            for x in range(SIZE):
                if inside(x + 0.5, y + 0.5):
                    self.plot(x, y, colour)

    def disc(self, cx, cy, r, colour):
        self.fill(lambda x, y: (x - cx) ** 2 + (y - cy) ** 2 <= r * r, colour)

    def ring(self, cx, cy, r0, r1, colour, start=0.0, end=360.0):
        def inside(x, y):
            d = math.hypot(x - cx, y - cy)
            a = math.degrees(math.atan2(y - cy, x - cx)) % 360.0
            return r0 <= d <= r1 and start <= a <= end
        self.fill(inside, colour)

    def rect(self, x0, y0, x1, y1, colour):
        self.fill(lambda x, y: x0 <= x <= x1 and y0 <= y <= y1, colour)

    def frame(self, x0, y0, x1, y1, width, colour):
        self.rect(x0, y0, x1, y1, colour)
        self.rect(x0 + width, y0 + width, x1 - width, y1 - width, (0, 0, 0, 0))

    def line(self, x0, y0, x1, y1, width, colour):
        def inside(x, y):
            dx, dy = x1 - x0, y1 - y0
            t = max(0.0, min(1.0, ((x - x0) * dx + (y - y0) * dy) / (dx * dx + dy * dy)))
            return math.hypot(x - x0 - t * dx, y - y0 - t * dy) <= width / 2
        self.fill(inside, colour)

    def triangle(self, points, colour):
        (ax, ay), (bx, by), (cx, cy) = points
        def side(px, py, qx, qy, x, y):
            return (qx - px) * (y - py) - (qy - py) * (x - px)
        def inside(x, y):
            s = [side(ax, ay, bx, by, x, y), side(bx, by, cx, cy, x, y), side(cx, cy, ax, ay, x, y)]
            return all(v >= 0 for v in s) or all(v <= 0 for v in s)
        self.fill(inside, colour)

    def png(self):
        rows = b"".join(b"\0" + bytes(c for pixel in row for c in pixel) for row in self.pixels)
        def chunk(kind, data):
            body = kind + data
            return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body))
        header = struct.pack(">IIBBBBB", SIZE, SIZE, 8, 6, 0, 0, 0)
        return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) +
                chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b""))


def settings(c):
    for tooth in range(8):
        a = math.radians(tooth * 45)
        c.line(16 + 9 * math.cos(a), 16 + 9 * math.sin(a), 16 + 14 * math.cos(a), 16 + 14 * math.sin(a), 5, DARK)
    c.disc(16, 16, 11, DARK)
    c.disc(16, 16, 4.5, (0, 0, 0, 0))


def render(c):
    c.disc(16, 16, 13, BLUE)
    c.disc(12, 11, 5, (120, 175, 240, 255))
    c.disc(11, 10, 2, WHITE)


def export(c):
    c.frame(3, 9, 22, 29, 2.5, DARK)
    c.line(12, 19, 25, 6, 3, ORANGE)
    c.triangle([(29, 2), (18, 5), (26, 13)], ORANGE)


def update(c):
    c.ring(16, 16, 8, 12, GREEN, 20, 340)
    c.triangle([(30, 10), (21, 13), (27, 20)], GREEN)


def check_box(c, x0, y0, x1, y1, ticked):
    c.rect(x0, y0, x1, y1, WHITE)
    c.frame(x0, y0, x1, y1, 2, DARK)
    if ticked:
        c.line(x0 + 3, (y0 + y1) / 2, (x0 + x1) / 2 - 1, y1 - 4, 3, GREEN)
        c.line((x0 + x1) / 2 - 1, y1 - 4, x1 - 2, y0 + 3, 3, GREEN)


ICONS = {
    "vr_settings.png": settings,
    "vr_render.png": render,
    "vr_export.png": export,
    "vr_update.png": update,
    "vr_update_checked.png": lambda c: (update(c), check_box(c, 14, 14, 31, 31, True)),
    "vr_update_unchecked.png": lambda c: (update(c), check_box(c, 14, 14, 31, 31, False)),
    "checked.png": lambda c: check_box(c, 4, 4, 28, 28, True),
    "unchecked.png": lambda c: check_box(c, 4, 4, 28, 28, False),
}

if __name__ == "__main__":
    folder = os.path.join(os.path.dirname(os.path.abspath(__file__)), "resource")
    os.makedirs(folder, exist_ok=True)
    for name, draw in ICONS.items():
        canvas = Canvas()
        draw(canvas)
        with open(os.path.join(folder, name), "wb") as out:
            out.write(canvas.png())
