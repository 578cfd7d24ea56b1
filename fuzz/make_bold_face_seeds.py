#!/usr/bin/env python3
# Writes the seeds of the bold_face fuzz target into corpus/bold_face/: tiny
# TrueType faces made here, in pairs, each file a big-endian 16-bit length,
# the face that gives the spacing, then the face that gives the shapes.
# face_* files make a bold face; damaged_* files are damaged in one way each
# and make none. The build runs it into its own folder, so that the
# repository keeps no binary files: python3 make_bold_face_seeds.py FOLDER
import struct
import sys
from pathlib import Path


def u16(*v): return struct.pack(f'>{len(v)}H', *v)
def i16(*v): return struct.pack(f'>{len(v)}h', *v)


def simple(contours):
    """A glyph of contours of (x, y, on-curve) points, steps short where they can be."""
    pts = [p for c in contours for p in c]
    ends, n = [], -1
    for c in contours:
        n += len(c)
        ends.append(n)
    xs, ys = [p[0] for p in pts], [p[1] for p in pts]
    flags, data = [], {0: b'', 1: b''}
    last = [0, 0]
    for x, y, on in pts:
        f = 1 if on else 0
        for axis, v, short, same in ((0, x, 2, 16), (1, y, 4, 32)):
            d = v - last[axis]
            last[axis] = v
            if d == 0: f |= same
            elif -256 < d < 256: f |= short | (same if d > 0 else 0); data[axis] += bytes([abs(d)])
            else: data[axis] += i16(d)
        flags.append(f)
    packed, i = b'', 0
    while i < len(flags):   # runs of the same flag as one flag and a count
        run = 1
        while i + run < len(flags) and flags[i + run] == flags[i] and run < 255: run += 1
        packed += bytes([flags[i] | 8, run - 1]) if run > 2 else bytes(flags[i:i + run])
        i += run
    return i16(len(contours), min(xs), min(ys), max(xs), max(ys)) + u16(*ends) + u16(0) + packed + data[0] + data[1]


def composite(parts):
    """Parts of (glyph, flags, arguments as bytes, transform as bytes); MORE_COMPONENTS set here."""
    out = i16(-1, 0, 0, 0, 0)
    for k, (g, flags, args, transform) in enumerate(parts):
        out += u16(flags | (0x20 if k + 1 < len(parts) else 0), g) + args + transform
    return out


def cmap4(segments, ids=()):
    """Segments of (first, last, delta, range offset in bytes or 0), then the glyph id array."""
    segments = list(segments) + [(0xFFFF, 0xFFFF, 1, 0)]
    n = len(segments)
    body = u16(*[s[1] for s in segments]) + u16(0) + u16(*[s[0] for s in segments])
    body += u16(*[s[2] & 0xFFFF for s in segments]) + u16(*[s[3] for s in segments]) + u16(*ids)
    return u16(4, 14 + len(body), 0, 2 * n, 2, 0, 2 * n - 2) + body


def cmap12(groups):
    body = b''.join(struct.pack('>3I', *g) for g in groups)
    return struct.pack('>HHIII', 12, 0, 16 + len(body), 0, len(groups)) + body


def cmap(subtables):
    """Subtables of (platform, encoding, bytes)."""
    head, body = u16(0, len(subtables)), b''
    for platform, encoding, table in subtables:
        head += u16(platform, encoding) + struct.pack('>I', 4 + 8 * len(subtables) + len(body))
        body += table
    return head + body


def face(glyphs, advances, em, character_map, long_loca=False, strikes=0):
    """advances: one per glyph up to the last that has its own; the rest share it."""
    glyf, loca = b'', [0]
    for g in glyphs:
        glyf += g + b'\0' * (len(g) % 2)
        loca.append(len(glyf))
    tables = {
        b'head': struct.pack('>IIIIHH', 0x10000, 0x10000, 0, 0x5F0F3CF5, 0, em) + b'\0' * 16
                 + i16(0, -200, em, em) + u16(0, 8, 2) + i16(int(long_loca), 0),
        b'hhea': struct.pack('>I', 0x10000) + i16(800, -200, 0) + u16(max(advances)) + b'\0' * 22 + u16(len(advances)),
        b'maxp': struct.pack('>I', 0x10000) + u16(len(glyphs)) + b'\0' * 26,
        b'hmtx': b''.join(u16(a, 0) for a in advances) + b'\0\0' * (len(glyphs) - len(advances)),
        b'loca': struct.pack(f'>{len(loca)}I', *loca) if long_loca else u16(*[o // 2 for o in loca]),
        b'glyf': glyf,
        b'cmap': character_map,
    }
    if strikes:
        tables[b'EBLC'] = struct.pack('>II', 0x20000, strikes) + bytes(range(48)) * strikes
        tables[b'EBDT'] = struct.pack('>I', 0x20000)
    entries = sorted(tables.items())
    out, offset = struct.pack('>IHHHH', 0x10000, len(entries), 0, 0, 0), 12 + 16 * len(entries)
    body = b''
    for tag, t in entries:
        out += tag + struct.pack('>III', 0, offset + len(body), len(t))
        body += t + b'\0' * (-len(t) % 4)
    return out + body


def overlaid(font):
    """The face with one more table, laid over the whole file."""
    n = struct.unpack('>H', font[4:6])[0]
    out = font[:4] + u16(n + 1) + font[6:12]
    for i in range(n):
        tag, checksum, offset, length = struct.unpack('>4sIII', font[12 + 16 * i:28 + 16 * i])
        out += tag + struct.pack('>III', checksum, offset + 16, length)
    return out + b'zzzz' + struct.pack('>III', 0, 0, len(font) + 16) + font[12 + 16 * n:]


box = simple([[(50, 0, 1), (50, 700, 1), (450, 700, 1), (450, 0, 1)]])
A = simple([[(0, 0, 1), (300, 700, 1), (600, 0, 1)], [(200, 200, 1), (300, 400, 0), (400, 200, 1)]])
B = simple([[(80, 0, 1), (80, 700, 1), (400, 700, 0), (400, 360, 1), (480, 0, 0)]])
# B moved by words, A scaled by half, A matched point 2 to point 1 and turned.
C = composite([(2, 0x3, i16(300, -10), b''), (1, 0x2 | 0x8, bytes([20, 10]), i16(0x2000)),
               (1, 0x80, bytes([1, 2]), i16(0, 0x4000, -0x4000, 0))])
spacing_glyphs = [box, A, B, C, C]
ascii_map = cmap([(3, 1, cmap4([(0x41, 0x42, -0x40, 0), (0x43, 0x44, 0, 4)], ids=(3, 2)))])
spacing_map = cmap([(1, 0, cmap4([])), (3, 10, cmap12([(0x41, 0x43, 1), (0x1F600, 0x1F600, 4)])),
                    (3, 1, cmap4([(0x41, 0x43, -0x40, 0)]))])
shapes_glyphs = [box, simple([[(0, 0, 1), (100, 1500, 1), (1300, 1500, 1), (1400, 0, 1)]]), B, C]


def spacing(**kw):
    args = dict(glyphs=spacing_glyphs, advances=[500, 600, 550], em=1000, character_map=spacing_map,
                strikes=2)
    args.update(kw)
    return face(**args)


def shapes(**kw):
    args = dict(glyphs=shapes_glyphs, advances=[1000, 1400, 1100, 1200], em=2048, character_map=ascii_map,
                long_loca=True)
    args.update(kw)
    return face(**args)


def chain(depth, fan):
    """Glyphs 1.. each made of `fan` copies of the next; the last one empty."""
    part = lambda g: (g, 0x3, i16(1, 1), b'')
    return [box] + [composite([part(g + 1)] * fan) for g in range(1, depth + 1)] + [b'']


seeds = {
    'face_tiny': (spacing(), shapes()),
    'face_short_loca_no_strikes': (spacing(strikes=0),
                                   shapes(long_loca=False, character_map=cmap([(0, 3, cmap12([(0x41, 0x43, 1)]))]))),
    'damaged_cmap12_whole_unicode': (spacing(character_map=cmap([(3, 10, cmap12([(0, 0x10FFFF, 0)]))])), shapes()),
    'damaged_cmap12_overlapping': (spacing(character_map=cmap([(0, 4, cmap12([(0x41, 0x42, 1), (0x42, 0x43, 1)]))])),
                                   shapes()),
    'damaged_cmap4_overlapping': (spacing(), shapes(character_map=cmap([(0, 3, cmap4([(0x41, 0x42, -0x40, 0),
                                                                                      (0x42, 0x43, -0x41, 0)]))]))),
    'damaged_cmap4_glyph_past_the_end': (spacing(), shapes(character_map=cmap([(3, 1, cmap4([(0x41, 0x41, 9, 0)]))]))),
    'damaged_cmap_past_the_table': (spacing(character_map=u16(0, 1, 3, 1) + struct.pack('>I', 0x10000)), shapes()),
    'damaged_component_of_itself': (spacing(), shapes(glyphs=[box, composite([(1, 0x3, i16(0, 0), b'')])] + [A] * 2)),
    'damaged_components_many_times_over': (spacing(), shapes(glyphs=chain(8, 40), advances=[1000] * 10)),
    'damaged_coordinate_far_out': (spacing(glyphs=[box, A, B, C, simple([[(0, 0, 1), (20000, 0, 1), (0, 9, 1)]])]),
                                   shapes()),
    'damaged_tables_laid_over_each_other': (overlaid(spacing()), shapes()),
}

folder = Path(sys.argv[1])
folder.mkdir(parents=True, exist_ok=True)
for name, (a, b) in seeds.items():
    (folder / f'{name}.bin').write_bytes(u16(len(a)) + a + b)
