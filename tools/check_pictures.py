#!/usr/bin/env python3
"""Checks that the pictures of the documentation are opaque.

    check_pictures.py FOLDER

Windows leaves the alpha channel of what it draws at zero: a picture with one shows a window without
its text on a web page. Prints each PNG below FOLDER that can be transparent, and exits with 1.
"""

import os
import struct
import sys

SIGNATURE = b"\x89PNG\r\n\x1a\n"


def fault(picture):
    """What is wrong with the bytes of a PNG file, or None."""
    if not picture.startswith(SIGNATURE):
        return "is no PNG"
    position = len(SIGNATURE)
    while position + 8 <= len(picture):
        size, kind = struct.unpack(">I4s", picture[position : position + 8])
        if kind == b"IHDR" and picture[position + 17] in (4, 6):  # the colour types with alpha
            return "has an alpha channel"
        if kind == b"tRNS":
            return "has transparent colours"
        if kind == b"IDAT":
            return None
        position += 12 + size  # with the checksum
    return "has no pixels"


def main(arguments):
    if len(arguments) != 1:
        print(__doc__, file=sys.stderr)
        return 2
    count = problems = 0
    for folder, _, names in sorted(os.walk(arguments[0])):
        for name in sorted(each for each in names if each.endswith(".png")):
            count += 1
            with open(os.path.join(folder, name), "rb") as file:
                found = fault(file.read())
            if found:
                problems += 1
                print(f"{os.path.join(folder, name)}: {found}", file=sys.stderr)
    if not problems:
        print(f"{count} pictures: no problems")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
