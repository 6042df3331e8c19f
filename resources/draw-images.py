#!/usr/bin/python3
"""draw-images.py: redraws the bundle's images next to this script. The images are checked in."""

import struct
import zlib
from pathlib import Path

# An arrow that points up out of a tray, in a square of 22 units.
SHAPES = [
    [(11, 2), (16, 7.4), (12.2, 7.4), (12.2, 14), (9.8, 14), (9.8, 7.4), (6, 7.4)],
    [(3, 10), (7.6, 10), (7.6, 12), (5, 12), (5, 18), (17, 18), (17, 12), (14.4, 12), (14.4, 10), (19, 10), (19, 20), (3, 20)],
]
UNITS = 22
SAMPLES = 4


def inside(shape, x, y):
    """Even-odd rule: counts how often a ray to the right crosses the outline."""
    result = False
    for (x1, y1), (x2, y2) in zip(shape, shape[1:] + shape[:1]):
        if (y1 > y) != (y2 > y) and x < x1 + (y - y1) / (y2 - y1) * (x2 - x1):
            result = not result
    return result


def coverage(column, row, size):
    hits = 0
    for i in range(SAMPLES * SAMPLES):
        x = (column + (i % SAMPLES + 0.5) / SAMPLES) * UNITS / size
        y = (row + (i // SAMPLES + 0.5) / SAMPLES) * UNITS / size
        hits += any(inside(shape, x, y) for shape in SHAPES)
    return round(255 * hits / SAMPLES**2)


def chunk(kind, data):
    body = kind + data
    return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body))


def png(size):
    """All black, with 8 bits each of gray and alpha, so that a host can tint it."""
    rows = b"".join(b"\0" + b"".join(bytes((0, coverage(x, y, size))) for x in range(size)) for y in range(size))
    header = struct.pack(">IIBBBBB", size, size, 8, 4, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b"")


Path(__file__).with_name("twitter.png").write_bytes(png(44))
