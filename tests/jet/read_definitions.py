#!/usr/bin/env python3
"""Reads PRESET_DEFS from a Jet 3 or Jet 4 file, and shares no line with the adapter: a second opinion for its tests.

    read_definitions.py FILE     one line a row: texts in quotes, numbers as the integers of their bits, or Null
"""

import struct
import sys

WANTED = ["machine_type", "var_name", "abs_max", "abs_min", "offset_or_bitno", "max", "min", "pass"]
FORMATS = {3: "<H", 7: "<Q"}


def rc4(key, data):
    s = list(range(256))
    j = 0
    for i in range(256):
        j = (j + s[i] + key[i % len(key)]) % 256
        s[i], s[j] = s[j], s[i]
    i = j = 0
    out = bytearray()
    for byte in data:
        i = (i + 1) % 256
        j = (j + s[i]) % 256
        s[i], s[j] = s[j], s[i]
        out.append(byte ^ s[(s[i] + s[j]) % 256])
    return bytes(out)


class Database:
    def __init__(self, data):
        self.jet4 = data[0x14] == 1
        self.size = 4096 if self.jet4 else 2048
        header = rc4(bytes.fromhex("C7DA396B"), data[0x18 : 0x18 + 126])
        key = struct.unpack_from("<I", header, 0x3E - 0x18)[0]
        self.pages = []
        for n in range(len(data) // self.size):
            page = data[n * self.size : (n + 1) * self.size]
            self.pages.append(rc4(struct.pack("<I", key ^ n), page) if key and n else page)

    def row_bounds(self, page, number):
        table = 14 if self.jet4 else 10
        start = struct.unpack_from("<H", page, table + 2 * number)[0]
        end = self.size if number == 0 else struct.unpack_from("<H", page, table + 2 * number - 2)[0] & 0x1FFF
        return start, end

    def map_pages(self, pointer):
        page = self.pages[pointer >> 8]
        start, end = self.row_bounds(page, pointer & 0xFF)
        row = page[start & 0x1FFF : end]
        assert row[0] == 0, "a map of another type"
        first = struct.unpack_from("<I", row, 1)[0]
        return [first + i for i in range(8 * (len(row) - 5)) if row[5 + i // 8] >> i % 8 & 1]

    def table(self, number):
        """Columns of a table by name in small letters: (number, type, fixed offset or index), and its rows."""
        page = self.pages[number]
        count = struct.unpack_from("<H", page, 45 if self.jet4 else 25)[0]
        indexes = struct.unpack_from("<I", page, 51 if self.jet4 else 31)[0]
        owned = struct.unpack_from("<I", page, 55 if self.jet4 else 35)[0]
        at = 63 + 12 * indexes if self.jet4 else 43 + 8 * indexes
        entries = []
        for _ in range(count):
            if self.jet4:
                kind, num, var, flags, fixed = (page[at], *struct.unpack_from("<HH", page, at + 5), page[at + 15],
                                                struct.unpack_from("<H", page, at + 21)[0])
            else:
                kind, num, var, flags, fixed = (page[at], *struct.unpack_from("<HH", page, at + 1), page[at + 13],
                                                struct.unpack_from("<H", page, at + 14)[0])
            entries.append((num, kind, bool(flags & 1), fixed if flags & 1 else var))
            at += 25 if self.jet4 else 18
        columns = {}
        for entry in entries:
            length = struct.unpack_from("<H", page, at)[0] if self.jet4 else page[at]
            at += 2 if self.jet4 else 1
            name = page[at : at + length].decode("utf-16-le" if self.jet4 else "cp1252")
            columns[name.lower()] = entry
            at += length
        return columns, [row for n in self.map_pages(owned) for row in self.rows(self.pages[n])]

    def rows(self, page):
        for i in range(struct.unpack_from("<H", page, 12 if self.jet4 else 8)[0]):
            start, end = self.row_bounds(page, i)
            if not start & 0x4000:
                yield page[start & 0x1FFF : end]

    def value(self, row, column):
        num, kind, fixed, where = column
        count = struct.unpack_from("<H", row)[0] if self.jet4 else row[0]
        mask = row[len(row) - (count + 7) // 8 :]
        if num >= count or not mask[num // 8] >> num % 8 & 1:
            return None
        if fixed:
            raw = row[(2 if self.jet4 else 1) + where :]
        else:
            bounds = self.variable_bounds(row, len(row) - len(mask))
            raw = row[bounds[where] : bounds[where + 1]]
        if kind == 10:
            if not self.jet4:
                return raw.decode("cp1252")
            return raw[2:].decode("latin-1") if raw[:2] == b"\xff\xfe" else raw.decode("utf-16-le")
        if kind == 4:
            return struct.unpack_from("<i", raw)[0]
        return struct.unpack_from(FORMATS[kind], raw)[0] if kind in FORMATS else None

    def variable_bounds(self, row, end):
        """Where the variable values start, and where the last one ends."""
        if self.jet4:
            count = struct.unpack_from("<H", row, end - 2)[0]
            return [struct.unpack_from("<H", row, end - 4 - 2 * i)[0] for i in range(count + 1)]
        count = row[end - 1]
        jumps = [row[end - 2 - k] for k in range((len(row) - 1) // 256)]
        bounds = []
        for i in range(count + 1):
            crossed = sum(1 for first in jumps if first <= i)
            bounds.append(row[end - 2 - len(jumps) - i] + 256 * crossed)
        return bounds


def main():
    with open(sys.argv[1], "rb") as file:
        database = Database(file.read())
    columns, rows = database.table(2)
    for row in rows:
        if database.value(row, columns["name"]) == "PRESET_DEFS":
            page = database.value(row, columns["id"])
    columns, rows = database.table(page)
    for row in rows:
        values = [(name, database.value(row, columns[name])) for name in WANTED]
        print(" ".join("Null" if value is None else f'"{value}"' if isinstance(value, str) else str(
            value - 65536 if name in ("offset_or_bitno", "pass") and value > 32767 else value)
            for name, value in values))


if __name__ == "__main__":
    sys.stdout.reconfigure(encoding="utf-8")
    main()
