#!/usr/bin/python3
# SPDX-License-Identifier: LicenseRef-ORVALD
"""Compares the records of two DXF files by handle, with a reader of its own.

    dxf_same.py OLD NEW    one line per difference; exit 1 when a record of OLD is missing or differs in NEW

Numbers are compared to the last bit, texts character by character, groups in their order. Header, classes, what
heads of tables count and list, and what NEW has besides are not looked at. Layers of old versions have no material
(347) and get one.
"""
import struct
import sys

REAL = [range(10, 60), range(110, 150), range(210, 240), range(460, 470), range(1010, 1060)]
INTEGER = [range(60, 100), range(160, 180), range(270, 300), range(370, 390), range(400, 410), range(420, 430),
           range(440, 460), range(1060, 1072)]
BINARY = [range(310, 320), range(1004, 1005)]
HANDLE = [range(5, 6), range(105, 106), range(320, 370), range(390, 400), range(480, 482), range(1005, 1006)]


def canonical(code, text):
    def among(kinds):
        return any(code in kind for kind in kinds)

    if among(REAL):
        return struct.pack("<d", float(text))
    if among(INTEGER):
        return int(text)
    if among(BINARY):
        return bytes.fromhex(text)
    if among(HANDLE):
        return int(text, 16)
    return text


def records(path):
    """Type and groups of each record by handle."""
    with open(path, "rb") as file:
        data = file.read()
    old = any(version in data[:2000] for version in (b"AC1015", b"AC1018"))  # in code page 1252
    lines = data.decode("cp1252" if old else "utf-8", "surrogateescape").replace("\r\n", "\n").split("\n")
    found, groups, section = {}, [], ""
    for code, text in zip(lines[0::2], lines[1::2]):
        code = int(code)
        if code == 0:
            keep(found, groups, section)
            groups = []
        elif code == 2 and groups == [(0, "SECTION")]:
            section = text
        groups.append((code, text if section in ("HEADER", "CLASSES") else canonical(code, text)))
    return found


def keep(found, groups, section):
    if section in ("HEADER", "CLASSES") or not groups:
        return
    name = 105 if groups[0][1] == "DIMSTYLE" else 5
    if groups[0][1] == "TABLE":
        groups = [group for group in groups if group[0] not in (70, 71, 340)]
    for code, value in groups:
        if code == name:
            found[value] = groups
            return


def main():
    old, new = records(sys.argv[1]), records(sys.argv[2])
    bad = not old
    for handle, groups in old.items():
        other = new.get(handle, [])
        if groups[0][1] == "LAYER" and all(code != 347 for code, _ in groups):
            other = [group for group in other if group[0] != 347]
        if groups == other:
            continue
        bad = True
        at = next((i for i, (a, b) in enumerate(zip(groups, other)) if a != b), min(len(groups), len(other)))
        print(f"{groups[0][1]} {handle:X}: {groups[at:at + 3]!s:.200} is {other[at:at + 3]!s:.200}")
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())
