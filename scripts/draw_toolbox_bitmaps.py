#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Draws the 19 toolbox bitmaps of the controls (16 by 15 pixels) as src/resources/30000.png to
30018.png, one per control in the order of the class table. With --sheet PATH it also writes all
of them enlarged side by side, with a gap, for looking at them."""
import argparse
import pathlib
import struct
import zlib

W, H = 16, 15
BG = (192, 192, 192)  # the toolbox's face colour
BLACK, WHITE, GREY, DARK = (0, 0, 0), (255, 255, 255), (128, 128, 128), (64, 64, 64)
NAVY, BLUE, SKY = (0, 0, 128), (0, 64, 192), (166, 202, 240)
RED, GREEN, YELLOW, ORANGE = (208, 0, 0), (0, 144, 0), (255, 224, 64), (255, 144, 0)


class Bitmap:
    def __init__(self):
        self.px = [[BG] * W for _ in range(H)]

    def dot(self, x, y, c):
        if 0 <= x < W and 0 <= y < H:
            self.px[y][x] = c

    def fill(self, x0, y0, x1, y1, c):  # both corners included
        for y in range(y0, y1 + 1):
            for x in range(x0, x1 + 1):
                self.dot(x, y, c)

    def box(self, x0, y0, x1, y1, c):
        self.fill(x0, y0, x1, y0, c)
        self.fill(x0, y1, x1, y1, c)
        self.fill(x0, y0, x0, y1, c)
        self.fill(x1, y0, x1, y1, c)

    def art(self, x0, y0, rows, colours):  # rows of characters; '.' leaves the pixel
        for dy, row in enumerate(rows):
            for dx, ch in enumerate(row):
                if ch != '.':
                    self.dot(x0 + dx, y0 + dy, colours[ch])

    def png(self, scale=1):
        raw = b''.join(b'\0' + bytes(v for p in row for p in [p] * scale for v in p)
                       for row in self.px for _ in range(scale))
        return encode_png(W * scale, H * scale, raw)


def encode_png(w, h, raw):
    def chunk(kind, data):
        return struct.pack('>I', len(data)) + kind + data + struct.pack('>I', zlib.crc32(kind + data))
    return (b'\x89PNG\r\n\x1a\n' + chunk(b'IHDR', struct.pack('>IIBBBBB', w, h, 8, 2, 0, 0, 0)) +
            chunk(b'IDAT', zlib.compress(raw, 9)) + chunk(b'IEND', b''))


def frame(b):  # caption bar with a collapse chevron over a white body
    b.fill(0, 1, 15, 13, WHITE); b.box(0, 1, 15, 13, NAVY); b.fill(1, 2, 14, 5, BLUE)
    b.art(10, 3, ['w...w', '.w.w.', '..w..'], {'w': WHITE}); b.fill(3, 8, 11, 8, GREY); b.fill(3, 10, 9, 10, GREY)

def frame_button(b):  # a flat bar button with a caption and an arrow
    b.fill(0, 4, 15, 10, (232, 231, 230)); b.box(0, 4, 15, 10, GREY); b.fill(2, 7, 8, 7, BLACK)
    b.art(11, 5, ['x..', 'xx.', 'xxx', 'xx.', 'x..'], {'x': NAVY})

def pane(b):  # a gradient-filled panel with a frame
    for x in range(1, 15):
        t = (x - 1) / 13
        b.fill(x, 1, x, 13, tuple(int(a + (c - a) * t) for a, c in zip((255, 255, 208), (0, 0, 64))))
    b.box(0, 0, 15, 14, GREY); b.fill(1, 1, 14, 1, WHITE); b.fill(1, 1, 1, 13, WHITE)

def hover_pic(b):  # a picture with its hover shadow
    b.fill(3, 3, 15, 14, GREY); b.fill(0, 0, 12, 11, SKY); b.box(0, 0, 12, 11, NAVY)
    b.fill(8, 2, 9, 3, YELLOW); b.art(1, 5, ['....g......', '...ggg..g..', '..ggggggggg', 'ggggggggggg', 'ggggggggggg', 'ggggggggggg'], {'g': GREEN})

def alert(b):  # a note sliding up above the task bar
    b.fill(0, 12, 15, 14, BLUE); b.fill(1, 13, 3, 13, GREEN); b.fill(3, 2, 15, 10, (255, 255, 225)); b.box(3, 2, 15, 10, DARK)
    b.fill(4, 3, 14, 4, ORANGE); b.fill(5, 6, 13, 6, GREY); b.fill(5, 8, 11, 8, GREY); b.art(7, 0, ['x', 'x'], {'x': DARK})

def info_panel(b):  # a rounded panel with an "i"
    b.fill(1, 1, 14, 13, (255, 255, 225)); b.box(1, 1, 14, 13, ORANGE)
    for x, y in ((1, 1), (14, 1), (1, 13), (14, 13)): b.dot(x, y, BG)
    b.fill(4, 3, 5, 4, BLUE); b.fill(4, 6, 5, 11, BLUE); b.fill(3, 6, 3, 6, BLUE); b.fill(3, 11, 6, 11, BLUE); b.fill(8, 5, 12, 5, GREY); b.fill(8, 8, 12, 8, GREY)

def line_hover(b):  # text lines, the hovered one lit and underlined
    b.fill(1, 2, 11, 2, GREY); b.fill(0, 5, 15, 9, SKY); b.fill(1, 7, 12, 7, BLUE); b.fill(1, 9, 12, 9, BLUE); b.fill(1, 12, 9, 12, GREY)

def frame_box(b):  # stacked frames in a box with a scroll bar
    b.fill(0, 0, 15, 14, WHITE); b.box(0, 0, 15, 14, DARK); b.fill(12, 1, 14, 13, (224, 224, 224)); b.fill(12, 3, 14, 7, GREY)
    for y in (2, 7):
        b.fill(2, y, 10, y + 1, BLUE); b.box(2, y, 10, y + 4, NAVY)

def balloon(b):  # a speech balloon with its tail
    b.fill(1, 0, 14, 9, (255, 255, 225)); b.box(1, 0, 14, 9, BLACK); b.art(2, 9, ['..xyyx', '.xyx..', '.xx...', 'x.....'], {'x': BLACK, 'y': (255, 255, 225)})
    b.fill(3, 3, 12, 3, GREY); b.fill(3, 6, 9, 6, GREY)

def color_label(b):  # letters in three colours
    b.art(0, 3, ['.rr..', 'r..r.', 'r..r.', 'rrrr.', 'r..r.', 'r..r.', 'r..r.'], {'r': RED})
    b.art(5, 3, ['g....', 'g....', 'ggg..', 'g..g.', 'g..g.', 'g..g.', 'ggg..'], {'g': GREEN})
    b.art(10, 3, ['.....', '.....', '.bbb.', 'b....', 'b....', 'b....', '.bbb.'], {'b': BLUE}); b.fill(0, 12, 14, 12, DARK)

def html(b):  # a page with angle brackets and a link
    b.fill(1, 0, 14, 14, WHITE); b.box(1, 0, 14, 14, GREY)
    b.art(3, 2, ['..x....x..', '.x....x.x.', 'x....x...x', '.x..x...x.', '..x......'], {'x': BLUE})
    b.fill(3, 9, 12, 9, GREY); b.fill(3, 11, 8, 11, BLUE); b.fill(3, 12, 8, 12, BLUE)

def light_frame(b):  # a plain box with a one-pixel border
    b.fill(1, 1, 14, 13, WHITE); b.box(1, 1, 14, 13, BLACK)

def info_panel_light(b):  # an "i" in a circle outline
    b.art(2, 1, ['...bbbbb...', '..b.....b..', '.b...w...b.', 'b.........b', 'b...ww....b', 'b....w....b', 'b....w....b', 'b....w....b',
                 '.b..www..b.', '..b.....b..', '...bbbbb...'], {'b': SKY, 'w': BLUE})

def snip(b):  # scissors
    b.art(2, 0, ['x.........x.', '.x.......x..', '..x.....x...', '...x...x....', '....x.x.....', '.....x......', '....x.x.....',
                 '..rrr.rrr...', '.r..r.r..r..', '.r..r.r..r..', '..rr...rr...'], {'x': DARK, 'r': RED})

def splitter(b):  # two panes and the grip between them
    b.fill(0, 0, 5, 14, WHITE); b.box(0, 0, 5, 14, GREY); b.fill(10, 0, 15, 14, WHITE); b.box(10, 0, 15, 14, GREY)
    b.fill(7, 0, 8, 14, DARK); b.art(5, 6, ['.x....x.', 'xx....xx', '.x....x.'], {'x': NAVY})

def msg(b):  # a message window with a sign and a button
    b.fill(0, 0, 15, 14, WHITE); b.box(0, 0, 15, 14, NAVY); b.fill(1, 1, 14, 3, BLUE); b.fill(12, 1, 13, 2, RED)
    b.fill(2, 5, 4, 9, YELLOW); b.fill(3, 6, 3, 7, BLACK); b.dot(3, 9, BLACK); b.fill(6, 6, 13, 6, GREY); b.fill(6, 8, 11, 8, GREY)
    b.fill(8, 10, 13, 13, BG); b.box(8, 10, 13, 13, DARK)

def check(b):  # a check box with its tick and a caption
    b.fill(0, 3, 8, 11, WHITE); b.box(0, 3, 8, 11, DARK); b.art(2, 5, ['....g', '...gg', 'g.gg.', 'ggg..', '.g...'], {'g': GREEN})
    b.fill(10, 7, 15, 7, BLACK)

def light_pane(b):  # a panel with one child filling it
    b.fill(0, 0, 15, 14, GREY); b.fill(2, 2, 13, 12, WHITE); b.box(2, 2, 13, 12, BLUE); b.fill(3, 3, 12, 4, SKY)
    b.art(0, 0, ['xx', 'x.'], {'x': WHITE}); b.art(14, 13, ['.x', 'xx'], {'x': WHITE})

def progress(b):  # a bar part filled in blocks
    b.fill(0, 4, 15, 10, WHITE); b.box(0, 4, 15, 10, GREY)
    for x in (2, 5, 8):
        b.fill(x, 6, x + 1, 8, GREEN)


CONTROLS = [frame, frame_button, pane, hover_pic, alert, info_panel, line_hover, frame_box, balloon, color_label, html,
            light_frame, info_panel_light, snip, splitter, msg, check, light_pane, progress]


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument('--out', default=str(pathlib.Path(__file__).resolve().parent.parent / 'src' / 'resources'))
    parser.add_argument('--sheet', help='also write an enlarged sheet of all bitmaps to this PNG')
    args = parser.parse_args()
    bitmaps = []
    for number, draw in enumerate(CONTROLS, start=30000):
        b = Bitmap()
        draw(b)
        bitmaps.append(b)
        (pathlib.Path(args.out) / f'{number}.png').write_bytes(b.png())
    if args.sheet:
        scale, gap = 8, 8
        width = len(bitmaps) * (W * scale + gap) + gap
        rows = []
        for y in range(H * scale + 2 * gap):
            row = bytearray(b'\0')
            for x in range(width):
                i, off = divmod(x - gap, W * scale + gap)
                inside = 0 <= x - gap and off < W * scale and gap <= y < gap + H * scale and i < len(bitmaps)
                row += bytes(bitmaps[i].px[(y - gap) // scale][off // scale]) if inside else b'\xff\xff\xff'
            rows.append(bytes(row))
        pathlib.Path(args.sheet).write_bytes(encode_png(width, H * scale + 2 * gap, b''.join(rows)))


if __name__ == '__main__':
    main()
