#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Draws the eight box pictures of the check control (13 by 13 pixels) as src/resources/20.png to
27.png: 20 to 23 the empty box in the looks normal, hover, pressed and disabled, 24 to 27 the same
looks with the square of the mixed state."""
import pathlib
import struct
import zlib

SIZE = 13
WHITE = (255, 255, 255)
FRAME, FRAME_OFF = (28, 81, 128), (202, 200, 187)
HOVER_RING, PRESSED = (255, 196, 96), (176, 176, 167)
MIXED, MIXED_OFF = (33, 161, 33), (202, 200, 187)


def encode_png(w, h, raw):
    def chunk(kind, data):
        return struct.pack('>I', len(data)) + kind + data + struct.pack('>I', zlib.crc32(kind + data))
    return (b'\x89PNG\r\n\x1a\n' + chunk(b'IHDR', struct.pack('>IIBBBBB', w, h, 8, 2, 0, 0, 0)) +
            chunk(b'IDAT', zlib.compress(raw, 9)) + chunk(b'IEND', b''))


def box(look, mixed):
    px = [[WHITE] * SIZE for _ in range(SIZE)]

    def fill(x0, y0, x1, y1, c):  # both corners included
        for y in range(y0, y1 + 1):
            for x in range(x0, x1 + 1):
                px[y][x] = c

    frame = FRAME_OFF if look == 'disabled' else FRAME
    fill(0, 0, SIZE - 1, SIZE - 1, frame)
    fill(1, 1, SIZE - 2, SIZE - 2, PRESSED if look == 'pressed' else WHITE)
    if look == 'hover':
        fill(1, 1, SIZE - 2, SIZE - 2, HOVER_RING)
        fill(3, 3, SIZE - 4, SIZE - 4, WHITE)
    if mixed:
        fill(4, 4, SIZE - 5, SIZE - 5, MIXED_OFF if look == 'disabled' else MIXED)
    raw = b''.join(b'\0' + bytes(v for p in row for v in p) for row in px)
    return encode_png(SIZE, SIZE, raw)


def main():
    out = pathlib.Path(__file__).resolve().parent.parent / 'src' / 'resources'
    for i, look in enumerate(['normal', 'hover', 'pressed', 'disabled']):
        (out / f'{20 + i}.png').write_bytes(box(look, False))
        (out / f'{24 + i}.png').write_bytes(box(look, True))


if __name__ == '__main__':
    main()
