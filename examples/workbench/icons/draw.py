#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Draws the images of the file kinds, 32 by 32 pixels, into the folder of this script.

Shapes are sampled 8 by 8 times a pixel. Coordinates are pixels, the origin is at the top left.
"""
import math
import pathlib
import struct
import zlib

SIZE = 32
SAMPLES = 8

INK = (52, 62, 80)
PAPER = (252, 252, 253)
EDGE = (120, 130, 148)
BLUE = (38, 110, 196)
GREEN = (34, 139, 84)
RED = (196, 60, 54)
AMBER = (214, 140, 20)
VIOLET = (124, 77, 178)
TEAL = (0, 128, 140)


def line(x1, y1, x2, y2, width=2.0):
    length = math.hypot(x2 - x1, y2 - y1)

    def inside(x, y):
        along = max(0.0, min(1.0, ((x - x1) * (x2 - x1) + (y - y1) * (y2 - y1)) / length**2))
        return math.hypot(x - x1 - along * (x2 - x1), y - y1 - along * (y2 - y1)) <= width / 2
    return inside


def path(points, width=2.0):
    parts = [line(*a, *b, width) for a, b in zip(points, points[1:])]
    return lambda x, y: any(part(x, y) for part in parts)


def polygon(points):
    def inside(x, y):
        odd = False
        for (x1, y1), (x2, y2) in zip(points, points[1:] + points[:1]):
            if (y1 > y) != (y2 > y) and x < (x2 - x1) * (y - y1) / (y2 - y1) + x1:
                odd = not odd
        return odd
    return inside


def box(x1, y1, x2, y2):
    return lambda x, y: x1 <= x <= x2 and y1 <= y <= y2


def disc(cx, cy, radius):
    return lambda x, y: math.hypot(x - cx, y - cy) <= radius


def ring(cx, cy, radius, width=2.0):
    return lambda x, y: abs(math.hypot(x - cx, y - cy) - radius) <= width / 2


def sheet(colour):
    """A sheet of paper with a folded corner and a band in the colour of the kind."""
    outline = [(5, 1), (21, 1), (28, 8), (28, 31), (5, 31)]
    inner = [(6.5, 2.5), (20.4, 2.5), (26.5, 8.6), (26.5, 29.5), (6.5, 29.5)]
    return [(polygon(outline), EDGE), (polygon(inner), PAPER), (polygon([(20, 1), (28, 9), (20, 9)]), EDGE),
            (box(6.5, 26, 26.5, 29.5), colour)]


def wave(x1, x2, middle, height):
    points = [(x1 + (x2 - x1) * i / 24, middle - height * math.sin(i / 24 * 2 * math.pi)) for i in range(25)]
    return path(points, 2.2)


def text_lines(count, top, left=9.5, right=23.5):
    return [(line(left, top + 5 * i, right - 4 * (i % 2), top + 5 * i, 1.8), INK) for i in range(count)]


def chip(colour):
    legs = [(line(3, y, 29, y, 1.8), EDGE) for y in (9, 16, 23)]
    return legs + [(box(8, 4, 24, 28), INK), (box(9.5, 5.5, 22.5, 26.5), colour)]


def icons():
    return {
        'AEExample': sheet(AMBER) + [(polygon([(11, 8), (23, 15), (11, 22)]), AMBER)],
        'ComponentIcon': chip((214, 226, 242)) + [(disc(12.5, 9, 1.6), INK)],
        'QRMReport': sheet(GREEN) + [(box(9, 16, 12, 23), GREEN), (box(14.5, 11, 17.5, 23), BLUE), (box(20, 13.5, 23, 23), AMBER)],
        'GraphIcon': [(box(1, 2, 31, 30), EDGE), (box(2.5, 3.5, 29.5, 28.5), PAPER),
                      (line(6, 6, 6, 25, 1.6), INK), (line(6, 25, 27, 25, 1.6), INK), (wave(7, 27, 15.5, 7), RED)],
        'ModelIcon': [(line(3, 16, 29, 16, 2), INK), (polygon([(10, 7), (10, 25), (22, 16)]), BLUE), (line(22.5, 7, 22.5, 25, 2.6), INK)],
        'SchematicIcon': [(box(1, 1, 31, 31), EDGE), (box(2.5, 2.5, 29.5, 29.5), PAPER),
                          (path([(4, 16), (8, 16), (9.5, 11), (12.5, 21), (15.5, 11), (18.5, 21), (20, 16), (28, 16)], 2.0), BLUE),
                          (disc(24, 16, 2.2), INK), (line(24, 16, 24, 23, 2.0), INK), (line(20.5, 23.5, 27.5, 23.5, 2.0), INK)],
        'ScriptIcon': sheet(VIOLET) + [(path([(9.5, 8.5), (14, 13), (9.5, 17.5)], 2.4), VIOLET), (line(15.5, 19, 23, 19, 2.2), INK)],
        'SymbolLibraryIcon': [(box(3, 3, 10, 29), BLUE), (box(12, 3, 19, 29), TEAL), (polygon([(20.5, 4.5), (26.5, 3), (31, 27.5), (25, 29)]), AMBER),
                              (box(4.5, 7, 8.5, 9), PAPER), (box(13.5, 7, 17.5, 9), PAPER)],
        'TextFileIcon': sheet(EDGE) + text_lines(3, top=12),
        'VerilogAIcon': chip((232, 222, 246)) + [(wave(11, 21, 16, 5), VIOLET)],
        'VerilogHDLIcon': chip((218, 240, 226)) + [(path([(11, 20), (14, 20), (14, 12), (18, 12), (18, 20), (21, 20)], 2.0), GREEN)],
        'VisualScriptIcon': [(line(9, 9, 23, 9, 2), INK), (line(9, 9, 16, 24, 2), INK), (line(23, 9, 16, 24, 2), INK),
                             (disc(9, 9, 6), VIOLET), (disc(23, 9, 6), TEAL), (disc(16, 24, 6), AMBER)],
    }


def pixel(shapes, px, py):
    """The mean of the samples, with straight alpha."""
    total = [0, 0, 0]
    covered = 0
    for i in range(SAMPLES * SAMPLES):
        x, y = px + (i % SAMPLES + 0.5) / SAMPLES, py + (i // SAMPLES + 0.5) / SAMPLES
        colour = next((c for inside, c in reversed(shapes) if inside(x, y)), None)
        if colour:
            covered += 1
            total = [t + c for t, c in zip(total, colour)]
    if covered == 0:
        return (0, 0, 0, 0)
    return (*(round(t / covered) for t in total), round(255 * covered / SAMPLES**2))


def chunk(kind, data):
    return struct.pack('>I', len(data)) + kind + data + struct.pack('>I', zlib.crc32(kind + data))


def png(shapes):
    rows = b''.join(b'\0' + b''.join(bytes(pixel(shapes, x, y)) for x in range(SIZE)) for y in range(SIZE))
    header = struct.pack('>IIBBBBB', SIZE, SIZE, 8, 6, 0, 0, 0)
    return b'\x89PNG\r\n\x1a\n' + chunk(b'IHDR', header) + chunk(b'IDAT', zlib.compress(rows, 9)) + chunk(b'IEND', b'')


def main():
    folder = pathlib.Path(__file__).resolve().parent
    for name, shapes in icons().items():
        (folder / f'{name}.png').write_bytes(png(shapes))


if __name__ == '__main__':
    main()
