#!/usr/bin/env python3
"""Turns a picture of a screen (XWD, as Xvfb keeps it: 32 bits a pixel) into a PNG file.

usage: xwd_to_png.py FROM.xwd TO.png
"""
import struct
import sys
import zlib


def read_xwd(data):
    """Width, height and the rows as RGB bytes."""
    fields = struct.unpack(">25I", data[:100])
    header_size, width, height = fields[0], fields[4], fields[5]
    little_endian, bits_per_pixel, bytes_per_line, colours = (
        fields[7] == 0, fields[11], fields[12], fields[19])
    if bits_per_pixel != 32:
        raise SystemExit("xwd_to_png: %d bits a pixel; 32 are expected" % bits_per_pixel)
    start = header_size + colours * 12
    red, blue = (2, 0) if little_endian else (1, 3)
    green = 1 if little_endian else 2
    rows = []
    for y in range(height):
        line = data[start + y * bytes_per_line:][:width * 4]
        row = bytearray(width * 3)
        row[0::3], row[1::3], row[2::3] = line[red::4], line[green::4], line[blue::4]
        rows.append(bytes(row))
    return width, height, rows


def chunk(kind, body):
    return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))


def png(width, height, rows):
    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    pixels = zlib.compress(b"".join(b"\0" + row for row in rows), 9)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", pixels) +
            chunk(b"IEND", b""))


def main(source, target):
    with open(source, "rb") as file:
        picture = read_xwd(file.read())
    with open(target, "wb") as file:
        file.write(png(*picture))


if __name__ == "__main__":
    main(*sys.argv[1:])
