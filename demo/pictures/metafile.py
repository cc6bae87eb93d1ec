"""Writes placeable Windows metafiles made of filled polygons."""

import struct

WIDTH, HEIGHT, UNITS_PER_INCH = 960, 640, 960

ANISOTROPIC, ALTERNATE, SOLID = 8, 1, 0


def record(function, *parameters):
    body = b"".join(parameters)
    return struct.pack("<IH", 3 + len(body) // 2, function) + body


def words(*values):
    return struct.pack(f"<{len(values)}h", *values)


def colour(rgb):
    return struct.pack("<BBBB", *rgb, 0)


def polygons(path, shapes):
    """shapes: list of (points, fill, outline, outline width), drawn in this order; coordinates 0..960 x 0..640."""
    records = [
        record(0x0103, words(ANISOTROPIC)),
        record(0x020B, words(0, 0)),
        record(0x020C, words(HEIGHT, WIDTH)),
        record(0x0106, words(ALTERNATE)),
    ]
    for points, fill, outline, width in shapes:
        flat = [value for point in points for value in point]
        records += [
            record(0x02FA, words(SOLID, width, 0), colour(outline)),
            record(0x02FC, words(SOLID), colour(fill), words(0)),
            record(0x012D, words(0)),
            record(0x012D, words(1)),
            record(0x0324, words(len(points)), words(*flat)),
            # The slots are free again for the next shape.
            record(0x01F0, words(0)),
            record(0x01F0, words(1)),
        ]
    records.append(record(0x0000))
    body = b"".join(records)
    longest = max(len(r) for r in records) // 2
    header = struct.pack("<HHHIHIH", 1, 9, 0x0300, 9 + len(body) // 2, 2, longest, 0)
    placeable = struct.pack("<IHhhhhHI", 0x9AC6CDD7, 0, 0, 0, WIDTH, HEIGHT, UNITS_PER_INCH, 0)
    checksum = 0
    for (value,) in struct.iter_unpack("<H", placeable):
        checksum ^= value
    path.write_bytes(placeable + struct.pack("<H", checksum) + header + body)


def shifted(points, dx, dy):
    return [(x + dx, y + dy) for x, y in points]


CHECK = [(250, 330), (330, 250), (430, 350), (640, 110), (725, 185), (438, 525)]
CROSS = [(300, 170), (370, 100), (480, 230), (590, 100), (660, 170), (552, 310), (660, 450), (590, 520), (480, 390), (370, 520),
         (300, 450), (408, 310)]


def check_mark(path):
    polygons(path, [(shifted(CHECK, 14, 18), (110, 120, 114), (110, 120, 114), 1), (CHECK, (22, 150, 62), (8, 84, 34), 14)])


def cross_mark(path):
    polygons(path, [(shifted(CROSS, 14, 18), (124, 112, 112), (124, 112, 112), 1), (CROSS, (206, 34, 34), (112, 12, 12), 14)])
