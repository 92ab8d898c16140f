#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
# Draws the alert's close-button bitmaps ("CLOSE1" normal, "CLOSE2" hot, "CLOSE3" pressed) into
# src/resources as 19 by 19 PNGs: a cross in a square. The hot look is a lit blue square with a
# white cross, the pressed one a dark sunken square with the cross moved one pixel down right.
# Run from the repository's root.
import zlib, struct

def png(path, w, h, px):
    raw = b''.join(b'\x00' + b''.join(bytes(p) for p in px[y*w:(y+1)*w]) for y in range(h))
    def chunk(t, d): return struct.pack('>I', len(d)) + t + d + struct.pack('>I', zlib.crc32(t + d) & 0xffffffff)
    open(path, 'wb').write(b'\x89PNG\r\n\x1a\n' + chunk(b'IHDR', struct.pack('>IIBBBBB', w, h, 8, 2, 0, 0, 0))
                           + chunk(b'IDAT', zlib.compress(raw, 9)) + chunk(b'IEND', b''))

def button(path, face, frame, light, shadow, cross, shift):
    N = 19
    px = [face] * (N * N)
    for i in range(N):
        for (x, y) in ((i, 0), (i, N - 1), (0, i), (N - 1, i)): px[y * N + x] = frame
    for i in range(1, N - 1):  # a one-pixel bevel inside the frame
        px[1 * N + i] = light; px[i * N + 1] = light
        px[(N - 2) * N + i] = shadow; px[i * N + N - 2] = shadow
    for i in range(5, 14):  # the cross, two pixels thick
        for d in (0, 1):
            for (x, y) in ((i + d, i), (N - 1 - i - d, i)):
                x += shift; y += shift
                if 0 <= x < N and 0 <= y < N: px[y * N + x] = cross
    png(path, N, N, px)

button('src/resources/CLOSE1.png', (236, 233, 216), (128, 128, 128), (255, 255, 255), (172, 168, 153), (64, 64, 64), 0)
button('src/resources/CLOSE2.png', (96, 160, 240), (32, 80, 176), (176, 208, 255), (48, 104, 200), (255, 255, 255), 0)
button('src/resources/CLOSE3.png', (32, 72, 152), (16, 40, 96), (16, 48, 112), (72, 120, 200), (255, 255, 255), 1)
