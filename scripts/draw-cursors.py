#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
# Draws the library's hand cursors ("HAND", "ZHANDU", "ZHANDD") into src/resources as 32 by 32
# PNGs: each hand is a union of rectangles, outlined in black and filled white; run from the
# repository's root.
import zlib, struct
def png(path, w, h, px):
    raw = b''.join(b'\x00' + b''.join(bytes(p) for p in px[y*w:(y+1)*w]) for y in range(h))
    def chunk(t, d): return struct.pack('>I', len(d)) + t + d + struct.pack('>I', zlib.crc32(t + d) & 0xffffffff)
    open(path, 'wb').write(b'\x89PNG\r\n\x1a\n' + chunk(b'IHDR', struct.pack('>IIBBBBB', w, h, 8, 6, 0, 0, 0)) + chunk(b'IDAT', zlib.compress(raw, 9)) + chunk(b'IEND', b''))
def hand(rects, lines, ox, oy, path):
    W = H = 32
    m = [[False]*W for _ in range(H)]
    for (x0, y0, x1, y1) in rects:
        for y in range(y0, y1 + 1):
            for x in range(x0, x1 + 1):
                # round the corners of each part
                if (x in (x0, x1)) and (y in (y0, y1)) and x1 - x0 > 1: continue
                m[y + oy][x + ox] = True
    px = []
    for y in range(H):
        for x in range(W):
            if not m[y][x]: px.append((0, 0, 0, 0)); continue
            edge = any(not (0 <= y + dy < H and 0 <= x + dx < W and m[y + dy][x + dx]) for dx, dy in ((1,0),(-1,0),(0,1),(0,-1)))
            px.append((0, 0, 0, 255) if edge else (255, 255, 255, 255))
    for (x, y0, y1) in lines:
        for y in range(y0, y1 + 1): px[(y + oy) * W + x + ox] = (0, 0, 0, 255)
    png(path, W, H, px)
# pointing hand: index finger up, the others folded, thumb at the left
hand([(5,0,8,11), (8,6,11,11), (11,7,14,11), (14,8,16,12), (4,9,16,19), (0,10,5,14), (2,13,6,16)],
     [(8,7,9), (11,8,10), (14,9,10)], 0, 0, 'src/resources/HAND.png')
# open hand: four fingers spread up, thumb at the left
hand([(3,3,6,12), (6,0,9,12), (9,1,12,12), (12,3,15,12), (3,10,15,20), (0,10,3,15), (1,14,4,17)],
     [(6,1,10), (9,2,10), (12,4,10)], 0, 0, 'src/resources/ZHANDU.png')
# gripping hand: fingers curled
hand([(3,6,6,12), (6,5,9,12), (9,5,12,12), (12,6,15,12), (2,9,15,19), (0,10,3,14)],
     [(6,6,9), (9,6,9), (12,7,9)], 0, 0, 'src/resources/ZHANDD.png')
