#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes the seed corpus of each fuzz target into fuzz/corpus/<target>/ (run from anywhere)."""
import base64
import json
import os
import struct
import zlib

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), 'corpus')


def w(target, name, data):
    os.makedirs(os.path.join(ROOT, target), exist_ok=True)
    if isinstance(data, str):
        data = data.encode('utf-8')
    with open(os.path.join(ROOT, target, name), 'wb') as f:
        f.write(data)


# ---- picture files ----
def chunk(kind, data):
    return struct.pack('>I', len(data)) + kind + data + struct.pack('>I', zlib.crc32(kind + data) & 0xFFFFFFFF)


def png(width, height, rows=None, colour=6, zeros=False):
    """A PNG of 8-bit samples (6 RGBA, 2 RGB, 0 grey); rows below height make it end early."""
    bpp = {6: 4, 2: 3, 0: 1}[colour]
    rows = height if rows is None else rows
    line = lambda y: b'\0' + (bytes(width * bpp) if zeros else bytes((x * 37 + y * 11) & 255 for x in range(width * bpp)))
    raw = b''.join(line(y) for y in range(rows))
    return (b'\x89PNG\r\n\x1a\n' + chunk(b'IHDR', struct.pack('>IIBBBBB', width, height, 8, colour, 0, 0, 0)) +
            chunk(b'IDAT', zlib.compress(raw, 9)) + chunk(b'IEND', b''))


def dib(width, height, bits, mask=False):
    palette = [] if bits > 8 else [(i * 0x010101) & 0xFFFFFF for i in range(1 << bits)]
    header = struct.pack('<IiiHHIIiiII', 40, width, 2 * height if mask else height, 1, bits, 0, 0, 2835, 2835,
                         len(palette), 0)
    stride = ((width * bits + 31) // 32) * 4
    pixels = b''.join(bytes((x * 7 + y * 13) & 255 for x in range(stride)) for y in range(height))
    andmask = b''
    if mask:
        mstride = ((width + 31) // 32) * 4
        andmask = b''.join(bytes([0x0F if y % 2 else 0xF0] * mstride) for y in range(height))
    return header + b''.join(struct.pack('<I', c) for c in palette) + pixels + andmask


def bmp(info, palette_entries):
    return b'BM' + struct.pack('<IHHI', 14 + len(info), 0, 0, 14 + 40 + 4 * palette_entries) + info


def ico(entries, kind=1):
    out = struct.pack('<HHH', 0, kind, len(entries))
    offset = 6 + 16 * len(entries)
    body = b''
    for width, height, data in entries:
        out += struct.pack('<BBBBHHII', width & 255, height & 255, 0, 0, 1, 32, len(data), offset)
        offset += len(data)
        body += data
    return out + body


# The first byte of a picture input asks for an icon (bit 0).
P = 'picture'
w(P, 'png_rgba_8x8', b'\0' + png(8, 8))
w(P, 'png_grey_5x3_as_icon', b'\1' + png(5, 3, colour=0))
w(P, 'png_rgb_4x4', b'\0' + png(4, 4, colour=2))
for bits in (1, 4, 8, 24, 32):
    w(P, 'bmp_%dbit' % bits, b'\0' + bmp(dib(7, 5, bits), (1 << bits) if bits <= 8 else 0))
w(P, 'ico_dib_and_png', b'\1' + ico([(16, 16, dib(16, 16, 24, mask=True)), (8, 8, png(8, 8))]))
w(P, 'cur_dib_32bit', b'\1' + ico([(4, 4, dib(4, 4, 32, mask=True))], kind=2))
# Regressions: sizes far beyond any screen, declared by small files.
w(P, 'png_declaring_23000_square', b'\1' + png(23000, 23000, rows=1500, colour=0, zeros=True))
w(P, 'png_16385_wide', b'\0' + png(16385, 1, colour=0, zeros=True))
w(P, 'ico_png_entry_16385_wide', b'\1' + ico([(0, 0, png(16385, 1, colour=0, zeros=True))]))

# ---- label captions: the first byte sets WordWrap (bit 0) and Autosize (bit 1) ----
L = 'label_markup'
w(L, 'plain', b'\0a<b>b</b> c<i>d</i> <u>e</u><s>f</s><br>g<c&HFF>h</c><c255>i<center>j')
w(L, 'wrap', b'\1one two three <b>four five</b> six seven eight nine ten eleven twelve <br>thirteen')
w(L, 'autosize', b'\2<c&H00FF00&>green</c> <B>bold</B> <foo <b>x')
w(L, 'wrap_autosize', b'\3<br>a<br><br>b  <b>   c  a < b > c')
w(L, 'colour_too_large', b'\0a<c99999999999>b<b>c')
w(L, 'colour_16_and_32_bit', b'\0<c&HFFFF>a<c&H0FFFF>b<c&H08000>c<c&HFFFF&>d')

# ---- Val and Format: text, a zero byte, a pattern; the first 24 bytes are also a date ----
V = 'val_format'
w(V, 'hex16', b'&HFFFF\0#,##0.00')
w(V, 'hex32', b'&H0FFFF&\x000')
w(V, 'octal', b'&O777\x000.0%')
w(V, 'decimal', b' 1 2 3.5e2\0"x"#;(#);\\z')
w(V, 'sign_and_hex', b'-&H1\0')
w(V, 'time', b'1A\x000')
w(V, 'date_fields', struct.pack('<6i', 2024, 3, 7, 9, 5, 4) + b'\0dd.mm.yyyy hh:nn:ss "x"')
w(V, 'date_smallest_fields', struct.pack('<6i', *([-2 ** 31] * 6)) + b'dd.m.yy h:n:s')

# ---- property bags: a control byte, then entries of a key byte, a type byte and the value ----
B = 'property_bag'


def long_(v):
    return b'\5' + struct.pack('<I', v & 0xFFFFFFFF)


def text(t):
    return b'\x08' + bytes([len(t)]) + t


def boolean(v):
    return b'\2' + bytes([v])


w(B, 'label', b'\0' + b'\3' + text(b'<b>x</b> y<br>z') + b'\4' + boolean(1) + b'\5' + boolean(1) + b'\0' + long_(255))
w(B, 'label_font', b'\0' + b'\2' + b'\x09' + bytes([5]) + b'Arial' + struct.pack('<H', 24) + b'\3' + b'\3' + text(b'Hallo'))
w(B, 'pane', b'\1' + b'\2' + boolean(1) + b'\3' + long_(45) + b'\4' + long_(2) + b'\x09' + b'\6' + struct.pack('<f', 1000.0))
w(B, 'lframe', b'\2' + b'\1' + long_(0xFF) + b'\3' + boolean(0))
w(B, 'lpane', b'\3' + b'\0' + long_(0x80000005))
up = png(20, 20)
w(B, 'hover_image', b'\4' + b'\4' + b'\x0a' + struct.pack('<H', len(up)) + up + b'\5' + long_(1) + b'\6' + long_(1))
w(B, 'hover_value_32768', b'\4' + b'\6' + long_(32768))

# ---- form files ----
F = 'form_file'
font = {"Font": {"name": "Arial", "size": 10.0, "bold": False, "italic": False, "underline": False,
                 "strikethrough": False}}


def control(cls, name, props, container=""):
    return {"class": cls, "name": name, "container": container, "left": 120.0, "top": 120.0, "width": 2000.0,
            "height": 600.0, "visible": True, "properties": props}


form = {"name": "Form1", "caption": "Test", "width": 6000.0, "height": 4500.0, "backColor": 0x8000000F, "font": font}
picture = base64.b64encode(png(8, 8)).decode()
controls = [
    control("VexPane", "Pane1", [["Gradient", {"Boolean": True}], ["BackColor2", {"Long": 255}]]),
    control("VexColorLabel", "Label1", [["Caption", {"String": "a<b>b</b><br>c"}], ["WordWrap", {"Boolean": True}],
                                        ["Font", font]], container="Pane1"),
    control("VexLFrame", "LFrame1", [["BorderColor", {"Long": 65280}]]),
    control("VexLPane", "LPane1", [], container="LFrame1"),
    control("VexHoverPic", "Hover1", [["ImageUp", {"Picture": picture}], ["Value", {"Long": 1}], ["Style", {"Long": 1}]]),
    control("PictureBox", "Picture1", []),
]
document = lambda items: json.dumps({"format": "corvane-form", "version": 1, "form": form, "controls": items}, indent=1)
w(F, 'all_controls', document(controls))
w(F, 'empty_form', document([]))
w(F, 'hover_value_32768', document([control("VexHoverPic", "Hover1", [["Value", {"Long": 32768}]])]))
