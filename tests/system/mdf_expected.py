#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Expected digests of the cMDF tests, worked out apart from the class.

The class pads in its own way: a count of 56 modulo 64 gets no pad byte, and above 56 the pad is
120 minus the whole count (only the low 32 bits of the bit count reach the length field). Files
leave out their last block when their length is a multiple of 64. This script applies those rules
to a plain MD5 compression written here, checks that compression against hashlib on standard
padding, and prints the table that cmdf_test.cpp holds.
"""
import hashlib
import math
import struct

K = [int(abs(math.sin(i + 1)) * 2**32) & 0xFFFFFFFF for i in range(64)]
S = [7, 12, 17, 22] * 4 + [5, 9, 14, 20] * 4 + [4, 11, 16, 23] * 4 + [6, 10, 15, 21] * 4
M32 = 0xFFFFFFFF


def rotl(x, n):
    return ((x << n) | (x >> (32 - n))) & M32


def compress(state, block):
    x = struct.unpack("<16I", block)
    a, b, c, d = state
    for i in range(64):
        if i < 16:
            f, g = (b & c) | (~b & d), i
        elif i < 32:
            f, g = (d & b) | (~d & c), (5 * i + 1) % 16
        elif i < 48:
            f, g = b ^ c ^ d, (3 * i + 5) % 16
        else:
            f, g = c ^ (b | (~d & M32)), (7 * i) % 16
        a, b, c, d = d, (b + rotl((a + f + K[i] + x[g]) & M32, S[i])) & M32, b, c
    return [(s + v) & M32 for s, v in zip(state, (a, b, c, d))]


class ClassDigest:
    """The class's buffering: a counter, a 64-byte buffer, whole blocks transformed."""

    def __init__(self):
        self.state = [0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476]
        self.counter = 0
        self.buf = bytearray(64)

    def update(self, data, n):
        index = self.counter % 64 if self.counter >= 0 else -((-self.counter) % 64)
        self.counter += n
        if n <= 0:
            return
        assert index >= 0
        part = 64 - index
        i = 0
        if n >= part:
            self.buf[index:64] = data[:part]
            self.state = compress(self.state, bytes(self.buf))
            i = part
            while i + 64 <= n:
                self.state = compress(self.state, data[i:i + 64])
                i += 64
            index = 0
        self.buf[index:index + n - i] = data[i:n]

    def final(self):
        bits = (self.counter * 8) & M32
        index = self.counter % 64
        pad = b"\x80" + bytes(119)
        self.update(pad, 56 - index if index <= 56 else 120 - self.counter)
        self.update(struct.pack("<I", bits) + bytes(4), 8)

    def hex(self):
        return struct.pack("<4I", *self.state).hex()


def string_digest(data):
    d = ClassDigest()
    d.update(data, len(data))
    d.final()
    return d.hex()


def file_digest(data):
    d = ClassDigest()
    n = len(data)
    whole = (n - 1) // 64 if n > 0 else 0
    for k in range(whole):
        d.counter += 64
        d.state = compress(d.state, data[64 * k:64 * k + 64])
    last = data[64 * whole:]
    d.buf[:len(last)] = last
    d.counter += n % 64
    d.final()
    return d.hex()


def text_bytes(n):  # printable ASCII, the same in C++ and here
    return bytes(33 + (i * 7) % 94 for i in range(n))


def file_bytes(n):  # every byte value occurs
    return bytes((i * 131 + 17) % 256 for i in range(n))


def standard(data):
    return hashlib.md5(data).hexdigest()


# The compression here agrees with hashlib wherever the class's padding is the standard one.
for n in (0, 1, 55, 57, 63, 64, 65, 119, 1000):
    assert string_digest(text_bytes(n)) == standard(text_bytes(n)), n

# Files: the stated consequences hold.
assert file_digest(file_bytes(64)) == standard(b"")
assert file_digest(file_bytes(65)) == standard(file_bytes(65))
assert file_digest(file_bytes(1 << 20)) == standard(file_bytes(1 << 20)[:-64])

LENGTHS = [0, 1, 55, 56, 57, 63, 64, 65, 119, 120, 121, 1 << 20]
print("// length, string digest, file digest, standard MD5 of the same text")
for n in LENGTHS:
    t, f = text_bytes(n), file_bytes(n)
    print(f'{{{n}, "{string_digest(t)}", "{file_digest(f)}", "{standard(t)}"}},')
print('// "Grüße" as Windows-1252:', standard("Grüße".encode("cp1252")))
