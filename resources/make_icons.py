#!/usr/bin/env python3
"""Draws the program's icons: the main panel with the smaller Tessaview panel below it.

Run without arguments after changing the drawing; the .ico files beside this script are what the build reads.
"""
import pathlib
import struct

FRAME = (0x30, 0x38, 0x40, 0xFF)
MAIN_PANEL = (0x58, 0x90, 0xC8, 0xFF)
TESSAVIEW_PANEL = (0x40, 0xC0, 0x98, 0xFF)
NOTHING = (0, 0, 0, 0)


def pixel(x, y, size):
    """The RGBA colour of one pixel; y counts down from the top."""
    left, right = size // 16, size - size // 16
    bands = ((size * 2 // 16, size * 9 // 16, MAIN_PANEL), (size * 10 // 16, size * 14 // 16, TESSAVIEW_PANEL))
    border = max(1, size // 24)
    for top, bottom, colour in bands:
        if not (left <= x < right and top <= y < bottom):
            continue
        inside = left + border <= x < right - border and top + border <= y < bottom - border
        return colour if inside else FRAME
    return NOTHING


def image(size):
    """One 32-bit image: header, rows from the bottom up in BGRA, and the mask of transparent pixels."""
    rows, mask = b"", b""
    mask_stride = (size + 31) // 32 * 4
    for y in reversed(range(size)):
        colours = [pixel(x, y, size) for x in range(size)]
        rows += b"".join(bytes((blue, green, red, alpha)) for red, green, blue, alpha in colours)
        bits = int("".join("0" if colour[3] else "1" for colour in colours), 2) << (mask_stride * 8 - size)
        mask += bits.to_bytes(mask_stride, "big")
    return struct.pack("<IiiHHIIiiII", 40, size, size * 2, 1, 32, 0, len(rows) + len(mask), 0, 0, 0, 0) + rows + mask


def write_icon(path, sizes):
    images = [image(size) for size in sizes]
    directory = struct.pack("<HHH", 0, 1, len(images))
    offset = len(directory) + 16 * len(images)
    for size, data in zip(sizes, images):
        directory += struct.pack("<BBBBHHII", size, size, 0, 0, 1, 32, len(data), offset)
        offset += len(data)
    path.write_bytes(directory + b"".join(images))


here = pathlib.Path(__file__).parent
write_icon(here / "tessaview_large.ico", (32, 48))
write_icon(here / "tessaview_small.ico", (16, 24))
